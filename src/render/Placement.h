// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <cmath>

namespace vexlator::render {

using util::PlanePoint;

/// Takes points from one plane to another: from a symbol to the ground, from the ground to a picture.
struct Placement {
    PlanePoint xAxis{1, 0}, yAxis{0, 1};  ///< what (1, 0) and (0, 1) become, seen from the origin
    PlanePoint origin;

    PlanePoint operator()(PlanePoint p) const {
        return {xAxis.x * p.x + yAxis.x * p.y + origin.x, xAxis.y * p.x + yAxis.y * p.y + origin.y};
    }
    /// Goes through `inner` first.
    Placement After(const Placement& inner) const {
        return {Turned(inner.xAxis), Turned(inner.yAxis), (*this)(inner.origin)};
    }
    /// The larger factor by which lengths grow.
    double Scale() const { return std::fmax(std::hypot(xAxis.x, xAxis.y), std::hypot(yAxis.x, yAxis.y)); }

private:
    PlanePoint Turned(PlanePoint p) const {
        return {xAxis.x * p.x + yAxis.x * p.y, xAxis.y * p.x + yAxis.y * p.y};
    }
};

}  // namespace vexlator::render
