// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace vexlator::coords {

enum class Direction { ToLatLng, ToGrid };

/// Points that are converted in place. x is the easting or longitude, y the northing or latitude in decimal
/// degrees, longitudes positive to the east. `heights` is empty or as long as `points`.
struct Coordinates {
    std::span<util::PlanePoint> points;
    std::span<double> heights;

    Coordinates Part(std::size_t begin, std::size_t count) const {
        return {points.subspan(begin, count), heights.empty() ? heights : heights.subspan(begin, count)};
    }
};

/// Whether a point can be longitude and latitude; longitudes may reach around the world.
inline bool IsDegrees(const util::PlanePoint& point) {
    return std::fabs(point.x) <= 360 && std::fabs(point.y) <= 90;
}

/// One way to convert.
class Backend {
public:
    virtual ~Backend() = default;
    /// A point that cannot be converted becomes infinite or NaN, the others are as computed. May show
    /// messages when it has to load something first.
    virtual void Convert(Direction direction, Coordinates coordinates) = 0;
    /// Decimals of grid values and heights as text; nothing when values pass as they are.
    virtual std::optional<int> GridDecimals() const { return 3; }
    /// For people: what converts, with the names of its files, or why nothing is converted. Loads what it
    /// has to load, without a message.
    virtual std::string Description() = 0;
};

}  // namespace vexlator::coords
