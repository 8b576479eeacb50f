// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/Annotation.h"

#include "background/styling/AnnotationText.h"

#include <cmath>
#include <numbers>

namespace vexlator::background {

namespace {

using util::PlanePoint;

constexpr double largeArea = 1000;  // square units
constexpr double largeHeight = 5;   // units

/// Computed relative to the first vertex, so that coordinates of a national grid lose no precision.
double AreaOf(std::span<const PlanePoint> points) {
    double twice = 0;
    PlanePoint origin = points.front(), before{};
    for (PlanePoint point : points) {
        PlanePoint here{point.x - origin.x, point.y - origin.y};
        twice += before.x * here.y - here.x * before.y;
        before = here;
    }
    return std::abs(twice) / 2;
}

}  // namespace

AnnotationPlace PlaceInOutline(std::span<const PlanePoint> points) {
    Box box = Box::Empty();
    for (PlanePoint point : points) box.Widen(point.x, point.y);
    return {{(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2},
            AreaOf(points) > largeArea ? largeHeight : 1};
}

AnnotationPlace PlaceAlongLine(std::span<const PlanePoint> points) {
    std::size_t middle = points.size() / 2;
    PlanePoint at = points[middle];
    if (middle == 0) return {at};
    PlanePoint before = points[middle - 1];
    double angle = std::numbers::pi / 2 - util::Bearing(before.x, before.y, at.x, at.y);
    bool isUpsideDown = angle < -std::numbers::pi / 2;
    return {at, 1, isUpsideDown ? angle + std::numbers::pi : angle};
}

void WriteAnnotation(PackageWriter& writer, const AnnotationPlace& place, std::string_view text) {
    TextPlacement line{.insertion = place.at, .height = place.height, .angle = place.angle};
    ForEachAnnotationLine(text, [&](std::string_view characters, std::size_t) {
        writer.WriteTextElement(line, characters);
        line.insertion.x += std::sin(place.angle) * place.height;
        line.insertion.y -= std::cos(place.angle) * place.height;
    });
}

}  // namespace vexlator::background
