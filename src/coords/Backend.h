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

/// Points, converted in place. x is the easting or longitude, y the northing or latitude, in decimal degrees
/// with east positive. `heights` is empty or as long as `points`.
struct Coordinates {
    std::span<util::PlanePoint> points;
    std::span<double> heights;

    Coordinates Part(std::size_t begin, std::size_t count) const {
        return {points.subspan(begin, count), heights.empty() ? heights : heights.subspan(begin, count)};
    }
};

/// Whether a point can be longitude and latitude. Longitudes may go once around the world.
inline bool IsDegrees(const util::PlanePoint& point) {
    return std::fabs(point.x) <= 360 && std::fabs(point.y) <= 90;
}

/// One way to convert.
class Backend {
public:
    virtual ~Backend() = default;
    /// A point that cannot be converted becomes infinite or NaN. Other results are not rounded. May show
    /// messages when it first loads files.
    virtual void Convert(Direction direction, Coordinates coordinates) = 0;
    /// Decimals of grid values and heights as text; nothing if values are not formatted.
    virtual std::optional<int> GridDecimals() const { return 3; }
    /// Description for the user: the conversion with its files, or why nothing is converted. Loads the files
    /// without a message.
    virtual std::string Description() = 0;
};

}  // namespace vexlator::coords
