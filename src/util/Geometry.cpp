// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Geometry.h"

#include <cmath>
#include <cstddef>
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

PlanePoint CentroidOf(std::span<const PlanePoint> ring) {
    if (ring.empty()) return {};
    // Relative to the first point, because products of grid coordinates lose digits.
    const PlanePoint origin = ring.front();
    double twiceArea = 0, x = 0, y = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PlanePoint& next = ring[(i + 1) % ring.size()];
        PlanePoint a{ring[i].x - origin.x, ring[i].y - origin.y}, b{next.x - origin.x, next.y - origin.y};
        double cross = a.x * b.y - b.x * a.y;
        twiceArea += cross;
        x += (a.x + b.x) * cross;
        y += (a.y + b.y) * cross;
    }
    if (twiceArea == 0) return MiddleOf(ring);
    return {origin.x + x / (3 * twiceArea), origin.y + y / (3 * twiceArea)};
}

PlanePoint MiddleOf(std::span<const PlanePoint> line) {
    double left = 0;
    for (std::size_t i = 1; i < line.size(); ++i)
        left += Distance(line[i - 1].x, line[i - 1].y, line[i].x, line[i].y);
    left /= 2;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const PlanePoint &from = line[i - 1], &to = line[i];
        double side = Distance(from.x, from.y, to.x, to.y);
        if (side >= left && side > 0)
            return {from.x + (to.x - from.x) * left / side, from.y + (to.y - from.y) * left / side};
        left -= side;
    }
    return line.front();
}

}  // namespace vexlator::util
