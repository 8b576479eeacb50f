// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/mif/MifShapes.h"

#include "util/Angles.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace vexlator::formats {

namespace {

constexpr double fullCircle = 6.28318530717958;
constexpr double degreesPerStep = 2;

util::PlanePoint CentreOf(const MifBox& box) {
    return {(box.x1 + box.x2) / 2, (box.y1 + box.y2) / 2};
}

}  // namespace

std::array<util::PlanePoint, 7> EllipseVertices(const MifBox& box) {
    std::array<util::PlanePoint, 7> vertices;
    util::PlanePoint centre = CentreOf(box);
    double distance = util::Distance(box.x1, box.y1, box.x2, box.y2);
    for (std::size_t k = 0; k < vertices.size(); ++k) {
        double angle = static_cast<double>(k % 6) * fullCircle / 6;
        vertices[k] = {centre.x + std::sin(angle) * distance, centre.y + std::cos(angle) * distance};
    }
    return vertices;
}

std::vector<util::PlanePoint> ArcVertices(const MifBox& box, double beginDegrees, double endDegrees) {
    double sweep = std::fmod(endDegrees - beginDegrees, 360);
    if (sweep <= 0) sweep += 360;
    double steps = std::ceil(sweep / degreesPerStep);
    util::PlanePoint centre = CentreOf(box);
    double radiusX = std::fabs(box.x2 - box.x1) / 2, radiusY = std::fabs(box.y2 - box.y1) / 2;
    std::vector<util::PlanePoint> vertices;
    for (double step = 0; step <= steps; ++step) {
        double angle = (beginDegrees + sweep * step / steps) / util::degreesPerRadian;
        vertices.push_back({centre.x + std::cos(angle) * radiusX, centre.y + std::sin(angle) * radiusY});
    }
    return vertices;
}

std::vector<util::PlanePoint> RectangleVertices(const MifBox& box, double rounding) {
    double minX = std::min(box.x1, box.x2), maxX = std::max(box.x1, box.x2);
    double minY = std::min(box.y1, box.y2), maxY = std::max(box.y1, box.y2);
    double dx = std::clamp(rounding, 0.0, maxX - minX), dy = std::clamp(rounding, 0.0, maxY - minY);
    std::vector<util::PlanePoint> vertices;
    if (dx > 0 && dy > 0) {
        const std::array<MifBox, 4> corners = {{{minX, minY, minX + dx, minY + dy},
                                                {maxX - dx, minY, maxX, minY + dy},
                                                {maxX - dx, maxY - dy, maxX, maxY},
                                                {minX, maxY - dy, minX + dx, maxY}}};
        for (std::size_t i = 0; i < corners.size(); ++i) {
            double begin = 180 + 90 * static_cast<double>(i);
            std::vector<util::PlanePoint> arc = ArcVertices(corners[i], begin, begin + 90);
            vertices.insert(vertices.end(), arc.begin(), arc.end());
        }
    } else {
        vertices = {{minX, minY}, {maxX, minY}, {maxX, maxY}, {minX, maxY}};
    }
    vertices.push_back(vertices.front());
    return vertices;
}

}  // namespace vexlator::formats
