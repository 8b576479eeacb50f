// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>

namespace vexlator::coords {

/// A few points at a time, one array for each ordinate: the input of one arithmetic loop. x and y are metres
/// of a grid, or longitude and latitude in radians. The height is in metres.
struct Lanes {
    static constexpr std::size_t count = 64;
    double x[count], y[count], height[count];

    void Scale(double factor) {
        for (double& value : x) value *= factor;
        for (double& value : y) value *= factor;
    }
};

/// `value` if it is within `most` on either side of 0, else NaN, which leaves the point to the projection
/// library.
constexpr double Within(double most, double value) {
    return value >= -most && value <= most ? value : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace vexlator::coords
