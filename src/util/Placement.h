// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <algorithm>
#include <cmath>

namespace vexlator::util {

/// Where a symbol stands: what its coordinates become in the drawing. Scaled, then turned, then moved.
struct Placement {
    PlanePoint xAxis{1, 0}, yAxis{0, 1};  ///< what (1, 0) and (0, 1) become, seen from the origin
    PlanePoint origin;

    PlanePoint operator()(PlanePoint p) const {
        PlanePoint moved = Turned(p);
        return {origin.x + moved.x, origin.y + moved.y};
    }
    /// Goes through `inner` first.
    Placement After(const Placement& inner) const {
        return {Turned(inner.xAxis), Turned(inner.yAxis), (*this)(inner.origin)};
    }
    /// A symbol at `at`, within a symbol that stands here.
    Placement Within(PlanePoint at, double scaleX, double scaleY, double rotation) const {
        double cosine = std::cos(rotation), sine = std::sin(rotation);
        return After({{scaleX * cosine, scaleX * sine}, {-scaleY * sine, scaleY * cosine}, at});
    }
    /// Radians, of what ran along the x axis.
    double Rotation() const { return std::atan2(xAxis.y, xAxis.x); }
    double ScaleX() const { return LengthOf(xAxis); }
    double ScaleY() const { return LengthOf(yAxis); }
    double LargerScale() const { return std::max(ScaleX(), ScaleY()); }

private:
    /// Scaled and turned, not moved.
    PlanePoint Turned(PlanePoint p) const {
        return {xAxis.x * p.x + yAxis.x * p.y, xAxis.y * p.x + yAxis.y * p.y};
    }
    /// Never short by what sine and cosine round away: heights and counts are cut to whole numbers.
    static double LengthOf(PlanePoint axis) {
        constexpr double rounding = 1e-14;
        return std::hypot(axis.x, axis.y) * (1 + rounding);
    }
};

}  // namespace vexlator::util
