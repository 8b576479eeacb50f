// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>
#include <string>

/// Plane geometry. Bearings are radians, whole-circle, clockwise from grid north.
namespace vexlator::util {

struct PlanePoint {
    double x = 0, y = 0;
    bool operator==(const PlanePoint&) const = default;
};

double Distance(double x1, double y1, double x2, double y2);
/// Bearing from the first point to the second, in [0, 2 pi). Identical points give 0 and, if `show` is given,
/// the message "RO sameas Occupied - assuming 0".
double Bearing(double x1, double y1, double x2, double y2,
               const std::function<void(const std::string&)>& show = nullptr);
PlanePoint PolarPoint(double x, double y, double bearing, double distance);

/// The centre of gravity of the area inside a ring, closed or not. That of its line if it has no area.
PlanePoint CentroidOf(std::span<const PlanePoint> ring);
/// The point in the middle of a line, by length; its first point if it has no length. The line has a point.
PlanePoint MiddleOf(std::span<const PlanePoint> line);

}  // namespace vexlator::util
