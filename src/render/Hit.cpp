// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/Hit.h"

#include <cmath>
#include <numbers>

namespace vexlator::render {

namespace {

constexpr double pointTolerance = 0.5;  ///< distinguishable distance of points in pixels
constexpr double fullTurn = 2 * std::numbers::pi;

double SweepOf(PlanePoint angles) {
    double sweep = std::fmod(angles.y - angles.x, fullTurn);
    return sweep < 0 ? sweep + fullTurn : sweep;
}

/// Calls `visit(points, isRing)` for the parts of an item with vertices on the ground.
template <typename Visit>
void ForEachRing(const Scene& scene, const Scene::Item& item, Visit visit) {
    std::span<const PlanePoint> vertices = scene.VerticesOf(item);
    if (item.kind != ItemKind::Area) return visit(vertices, item.kind == ItemKind::Ring);
    std::size_t start = 0;
    for (std::uint32_t end : scene.RingEndsOf(item)) {
        visit(vertices.subspan(start, end - start), true);
        start = end;
    }
}

Course CurveIn(const Scene& scene, const Scene::Item& item, double scale) {
    std::span<const PlanePoint> vertices = scene.VerticesOf(item);
    bool isArc = item.kind == ItemKind::Arc;
    Course curve;
    CurveOf(vertices[0], vertices[1].x, isArc ? vertices[2].x : 0, isArc ? SweepOf(vertices[2]) : fullTurn,
            scale, curve);
    return curve;
}

Course BoxIn(const Scene& scene, std::size_t item) {
    Box box = scene.BoxOf(item);
    return {{box.minX, box.minY}, {box.maxX, box.minY}, {box.maxX, box.maxY}, {box.minX, box.maxY}};
}

/// Distance of a position from a segment, in pixels.
double DistanceTo(PlanePoint a, PlanePoint b, PlanePoint place) {
    double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
    double along = square > 0 ? ((place.x - a.x) * dx + (place.y - a.y) * dy) / square : 0;
    along = std::clamp(along, 0.0, 1.0);
    return std::hypot(a.x + along * dx - place.x, a.y + along * dy - place.y);
}

double DistanceTo(const Course& course, PlanePoint place) {
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < course.size(); ++i)
        least = std::min(least, DistanceTo(course[i == 0 ? 0 : i - 1], course[i], place));
    return least;
}

/// By the odd-even rule.
bool IsAround(const std::vector<Course>& rings, PlanePoint place) {
    bool isAround = false;
    for (const Course& ring : rings)
        for (std::size_t i = 1; i < ring.size(); ++i) {
            PlanePoint a = ring[i - 1], b = ring[i];
            if ((a.y > place.y) != (b.y > place.y) &&
                place.x < a.x + (b.x - a.x) * (place.y - a.y) / (b.y - a.y))
                isAround = !isAround;
        }
    return isAround;
}

/// Without vertices of its own.
bool IsWhole(const Scene::Item& item) {
    return item.kind == ItemKind::Text || item.kind == ItemKind::Symbol || item.kind == ItemKind::Image;
}

Course CornersIn(const Scene& scene, const Scene::Item& image) {
    std::span<const PlanePoint> vertices = scene.VerticesOf(image);
    auto corners = CornersOf(scene.ImageOf(image), {vertices[1], vertices[2], vertices[0]});
    return {corners.begin(), corners.end()};
}

bool HasInside(const Scene& scene, const Scene::Item& item) {
    if (IsWhole(item)) return true;
    return scene.PenOf(item).fill != 0 && (item.kind == ItemKind::Area || item.kind == ItemKind::Circle);
}

}  // namespace

std::vector<Course> OutlineOf(const Scene& scene, std::size_t number, const View& view) {
    const Scene::Item& item = scene.At(number);
    std::vector<Course> outline;
    auto add = [&](std::span<const PlanePoint> points, bool isRing) {
        Project(points, view.ToPixels(), pointTolerance, isRing, outline.emplace_back());
    };
    switch (item.kind) {
        case ItemKind::Circle:
        case ItemKind::Arc:
            add(CurveIn(scene, item, view.Scale()), false);
            break;
        case ItemKind::Text:
        case ItemKind::Symbol:
            add(BoxIn(scene, number), true);
            break;
        case ItemKind::Image:
            add(CornersIn(scene, item), true);
            break;
        default:
            ForEachRing(scene, item, add);
    }
    return outline;
}

std::optional<std::size_t> ItemAt(const Scene& scene, const View& view, PlanePoint pixel, double reach,
                                  const std::vector<bool>& hiddenLayers) {
    PlanePoint least = view.ToGround({pixel.x - reach, pixel.y + reach});
    PlanePoint most = view.ToGround({pixel.x + reach, pixel.y - reach});
    std::optional<std::size_t> nearest, around;
    double nearestDistance = reach;
    for (std::uint32_t item : scene.ItemsIn({least.x, least.y, most.x, most.y})) {
        std::uint32_t layer = scene.SourceOf(item).layer;
        if (layer < hiddenLayers.size() && hiddenLayers[layer]) continue;
        std::vector<Course> outline = OutlineOf(scene, item, view);
        for (const Course& course : outline)
            if (double distance = DistanceTo(course, pixel); distance <= nearestDistance) {
                nearestDistance = distance;
                nearest = item;
            }
        if (HasInside(scene, scene.At(item)) && IsAround(outline, pixel)) around = item;
    }
    return nearest ? nearest : around;
}

double LengthOf(const Scene& scene, std::size_t number) {
    const Scene::Item& item = scene.At(number);
    std::span<const PlanePoint> vertices = scene.VerticesOf(item);
    if (item.kind == ItemKind::Circle) return fullTurn * vertices[1].x;
    if (item.kind == ItemKind::Arc) return vertices[1].x * SweepOf(vertices[2]);
    double length = 0;
    if (IsWhole(item)) return length;
    ForEachRing(scene, item, [&](std::span<const PlanePoint> points, bool isRing) {
        for (std::size_t i = isRing ? 0 : 1; i < points.size(); ++i) {
            PlanePoint from = points[i == 0 ? points.size() - 1 : i - 1];
            length += std::hypot(points[i].x - from.x, points[i].y - from.y);
        }
    });
    return length;
}

}  // namespace vexlator::render
