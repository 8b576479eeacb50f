// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <algorithm>
#include <cmath>

namespace vexlator::util {

/// The placement of a symbol: a map from its coordinates to the drawing's. It scales, then rotates, then
/// moves.
struct Placement {
    PlanePoint xAxis{1, 0},
        yAxis{0, 1};  ///< images of (1, 0) and (0, 1), relative to the image of the origin
    PlanePoint origin;

    PlanePoint operator()(PlanePoint p) const {
        PlanePoint moved = Turned(p);
        return {origin.x + moved.x, origin.y + moved.y};
    }
    /// Applies `inner` first.
    Placement After(const Placement& inner) const {
        return {Turned(inner.xAxis), Turned(inner.yAxis), (*this)(inner.origin)};
    }
    /// The placement of a symbol at `at`, inside a symbol with this placement.
    Placement Within(PlanePoint at, double scaleX, double scaleY, double rotation) const {
        double cosine = std::cos(rotation), sine = std::sin(rotation);
        return After({{scaleX * cosine, scaleX * sine}, {-scaleY * sine, scaleY * cosine}, at});
    }
    /// Direction, in radians, of a line along the x axis.
    double Rotation() const { return std::atan2(xAxis.y, xAxis.x); }
    double ScaleX() const { return LengthOf(xAxis); }
    double ScaleY() const { return LengthOf(yAxis); }
    double LargerScale() const { return std::max(ScaleX(), ScaleY()); }

private:
    /// Scaled and rotated, not moved.
    PlanePoint Turned(PlanePoint p) const {
        return {xAxis.x * p.x + yAxis.x * p.y, xAxis.y * p.x + yAxis.y * p.y};
    }
    /// Corrects the rounding of sine and cosine, because heights and counts are truncated to whole numbers.
    static double LengthOf(PlanePoint axis) {
        constexpr double rounding = 1e-14;
        return std::hypot(axis.x, axis.y) * (1 + rounding);
    }
};

}  // namespace vexlator::util
