// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Geometry.h"

#include <cmath>
#include <numbers>

namespace vexlator::util {

double Distance(double x1, double y1, double x2, double y2) {
    return std::hypot(x1 - x2, y1 - y2);
}

double Bearing(double x1, double y1, double x2, double y2,
               const std::function<void(const std::string&)>& show) {
    if (x1 == x2 && y1 == y2) {
        if (show) show("RO sameas Occupied - assuming 0");
        return 0;
    }
    double bearing = std::atan2(x2 - x1, y2 - y1);
    if (bearing < 0) bearing += 2 * std::numbers::pi;
    return bearing < 2 * std::numbers::pi ? bearing : 0;
}

PlanePoint PolarPoint(double x, double y, double bearing, double distance) {
    return {x + distance * std::sin(bearing), y + distance * std::cos(bearing)};
}

}  // namespace vexlator::util
