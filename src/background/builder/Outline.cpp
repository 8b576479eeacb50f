// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/Outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vexlator::background {

namespace {

using util::PlanePoint;

constexpr std::size_t mostVertices = 16000;
constexpr double sameEnds = 0.01;      // units
constexpr double curveSpacing = 0.25;  // units
constexpr double mostOfCurve = 65000;
constexpr std::size_t fewestOfCurve = 20;

/// Keeps every second vertex, counted from the end, so that the last one stays. The first two stay as well.
void RemoveEverySecond(std::vector<PlanePoint>& points) {
    std::size_t kept = 2;
    for (std::size_t i = kept; i < points.size(); ++i)
        if ((points.size() - i) % 2 == 1) points[kept++] = points[i];
    points.resize(kept);
}

double GapOf(std::span<const PlanePoint> points) {
    return util::Distance(points.front().x, points.front().y, points.back().x, points.back().y);
}

std::size_t VerticesFor(double length) {
    if (!std::isfinite(length)) return fewestOfCurve;
    auto count = static_cast<std::size_t>(std::clamp(length / curveSpacing, 0.0, mostOfCurve));
    return count == 0 ? fewestOfCurve : count;
}

}  // namespace

void Outline::Take(std::span<const PlanePoint> points, const Placement* placement, bool isMarkedClosed) {
    bool isThinned = points.size() > mostVertices;
    if (isThinned || placement) {
        own_.assign(points.begin(), points.end());
        if (placement) std::ranges::transform(own_, own_.begin(), *placement);
        if (isThinned) RemoveEverySecond(own_);
        points = own_;
    }
    points_ = points;
    isClosed_ = !points.empty() && (isMarkedClosed || GapOf(points) < sameEnds);
    if (!isClosed_ || GapOf(points) <= sameEnds) return;
    if (points.data() != own_.data()) own_.assign(points.begin(), points.end());
    own_.push_back(own_.front());
    points_ = own_;
}

void Outline::TakePolyline(const drawing::Entity& polyline, const Placement* placement) {
    Take(polyline.planVertices(), placement, polyline.isClosed());
}

void Outline::TakeLine(const drawing::Entity& line, const Placement* placement) {
    Take(line.planVertices(), placement, false);
}

void Outline::TakeCurve(const drawing::Entity& curve, const Placement* placement) {
    bool isCircle = curve.kindCode() == drawing::Kind::Circle;
    double length = curve.length(), radius = curve.radius();
    std::size_t count = VerticesFor(length * (placement ? placement->LargerScale() : 1));
    double from = isCircle ? 0 : curve.shape().startAngle;
    double sweep = isCircle ? 2 * std::numbers::pi : radius == 0 ? 0 : length / radius;
    // The last vertex of an arc is its end. The last vertex of a circle is one step before its first.
    double step = sweep / static_cast<double>(isCircle ? count : std::max<std::size_t>(count - 1, 1));
    drawing::Point centre = curve.centre();
    curve_.clear();
    for (std::size_t i = 0; i < count; ++i) {
        double angle = from + step * static_cast<double>(i);
        curve_.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    Take(curve_, placement, isCircle);
}

}  // namespace vexlator::background
