// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/EntityShape.h"

#include "export/RingMarks.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vexlator::gis {

using drawing::EntityView;
using drawing::Kind;

namespace {

constexpr double circle = 2 * std::numbers::pi;

bool IsArea(const EntityView& entity) {
    return entity.isClosed() ||
           (entity.xproperties().count() > 0 &&
            (entity.xproperties().find("Area") || entity.xproperties().find(exporter::surfaceName) ||
             entity.xproperties().find(exporter::holeName)));
}

ShapeKind PolylineKind(const EntityView& entity) {
    constexpr std::size_t fewestOfArea = 3;
    std::size_t count = entity.vertexCount();
    if (count == 0) return ShapeKind::Nothing;
    if (count == 1) return ShapeKind::Place;
    return count >= fewestOfArea && IsArea(entity) ? ShapeKind::Area : ShapeKind::Line;
}

void AppendArc(const EntityView& entity, std::vector<util::PlanePoint>& points) {
    constexpr double step = circle / 90;
    const drawing::Shape& shape = entity.shape();
    bool isCircle = entity.kindCode() == Kind::Circle;
    double start = isCircle ? 0 : shape.startAngle, sweep = isCircle ? circle : shape.endAngle - start;
    if (sweep <= 0 || sweep > circle) sweep -= circle * std::floor(sweep / circle);
    if (sweep == 0) sweep = circle;
    if (!std::isfinite(start + sweep)) return;
    drawing::Point centre = entity.centre();
    int steps = std::max(1, static_cast<int>(std::ceil(sweep / step - 1e-9)));
    for (int i = 0; i <= steps; ++i) {
        double angle = start + sweep * i / steps;
        points.push_back({centre.x + shape.size * std::cos(angle), centre.y + shape.size * std::sin(angle)});
    }
    if (isCircle) points.back() = points[points.size() - 1 - static_cast<std::size_t>(steps)];
}

}  // namespace

ShapeKind ShapeKindOf(const EntityView& entity) {
    switch (entity.kindCode()) {
        case Kind::Point:
        case Kind::Insert:
        case Kind::Text:
            return entity.vertexCount() > 0 ? ShapeKind::Place : ShapeKind::Nothing;
        case Kind::Polyline:
            return PolylineKind(entity);
        case Kind::Line:
            return entity.vertexCount() > 1 ? ShapeKind::Line : ShapeKind::Nothing;
        case Kind::Circle:
            return ShapeKind::Area;
        case Kind::Arc:
            return ShapeKind::Line;
        case Kind::Other:
            break;
    }
    return ShapeKind::LeftOut;
}

void AppendVertices(const EntityView& entity, ShapeKind kind, std::vector<util::PlanePoint>& points,
                    std::vector<double>& heights) {
    std::size_t begin = points.size();
    if (entity.kindCode() == Kind::Circle || entity.kindCode() == Kind::Arc) {
        AppendArc(entity, points);
        heights.resize(points.size(), entity.centre().z);
        return;
    }
    std::span<const util::PlanePoint> plan = entity.planVertices();
    if (kind == ShapeKind::Place) plan = plan.first(1);
    points.insert(points.end(), plan.begin(), plan.end());
    std::span<const double> z = entity.heights();
    if (!z.empty())
        heights.insert(heights.end(), z.begin(), z.begin() + static_cast<std::ptrdiff_t>(plan.size()));
    heights.resize(points.size());
    if (kind != ShapeKind::Area || points[begin] == points.back()) return;
    points.push_back(points[begin]);
    heights.push_back(heights[begin]);
}

}  // namespace vexlator::gis
