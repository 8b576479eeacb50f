// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Angles.h"

#include <algorithm>
#include <cmath>

namespace vexlator::background {

/// Where a symbol stands: what its coordinates become in the drawing. Scaled, then turned, then moved.
struct Placement {
    util::PlanePoint xAxis{1, 0}, yAxis{0, 1};  ///< what (1, 0) and (0, 1) become, seen from the origin
    util::PlanePoint origin;

    util::PlanePoint operator()(util::PlanePoint p) const {
        return {origin.x + xAxis.x * p.x + yAxis.x * p.y, origin.y + xAxis.y * p.x + yAxis.y * p.y};
    }
    /// A symbol at `at`, within a symbol that stands here.
    Placement Within(util::PlanePoint at, double scaleX, double scaleY, double rotation) const {
        double cosine = std::cos(rotation), sine = std::sin(rotation);
        auto turned = [&](util::PlanePoint p) {
            util::PlanePoint moved = (*this)({p.x, p.y});
            return util::PlanePoint{moved.x - origin.x, moved.y - origin.y};
        };
        return {turned({scaleX * cosine, scaleX * sine}), turned({-scaleY * sine, scaleY * cosine}),
                (*this)(at)};
    }
    /// Radians, of what ran along the x axis.
    double Rotation() const { return std::atan2(xAxis.y, xAxis.x); }
    double ScaleX() const { return std::hypot(xAxis.x, xAxis.y); }
    double ScaleY() const { return std::hypot(yAxis.x, yAxis.y); }
    double LargerScale() const { return std::max(ScaleX(), ScaleY()); }
};

}  // namespace vexlator::background
