// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/Course.h"

#include <algorithm>
#include <numbers>

namespace vexlator::render {

namespace {

bool IsFinite(PlanePoint p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

/// Pixels. Beyond, differences of coordinates have no digits left for the picture.
constexpr double farthest = 1e15;

PlanePoint Within(PlanePoint p) {
    return {std::clamp(p.x, -farthest, farthest), std::clamp(p.y, -farthest, farthest)};
}

/// Clips a ring at one side of the box: `depth(point)` is the distance of a point from the side, positive
/// inside.
template <typename Depth>
void CutSide(Course& ring, Course& work, Depth depth) {
    work.clear();
    for (std::size_t i = 0; i < ring.size(); ++i) {
        PlanePoint a = ring[i == 0 ? ring.size() - 1 : i - 1], b = ring[i];
        double atA = depth(a), atB = depth(b);
        if ((atA < 0) != (atB < 0)) {
            double share = atA / (atA - atB);
            work.push_back({a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share});
        }
        if (atB >= 0) work.push_back(b);
    }
    ring.swap(work);
}

}  // namespace

void Project(std::span<const PlanePoint> points, const Placement& toPixels, double tolerance, bool isRing,
             Course& course) {
    course.clear();
    for (std::size_t i = 0; i < points.size(); ++i) {
        PlanePoint p = Within(toPixels(points[i]));
        if (!course.empty() && i + 1 < points.size() && std::abs(p.x - course.back().x) < tolerance &&
            std::abs(p.y - course.back().y) < tolerance)
            continue;
        if (IsFinite(p)) course.push_back(p);
    }
    if (isRing && course.size() > 1 && !(course.front() == course.back())) course.push_back(course.front());
}

void CurveOf(PlanePoint centre, double radius, double start, double sweep, double pixelsPerUnit,
             Course& course) {
    constexpr double off = 0.2, most = 4000;
    double pixels = std::max(radius * pixelsPerUnit, off);
    // The chord of an angle a is at most r (1 - cos(a / 2)) off the circle.
    double angle = 2 * std::acos(std::max(0.0, 1 - off / pixels));
    double parts = std::min(std::ceil(std::abs(sweep) / angle), most);
    auto count = static_cast<std::size_t>(std::max(parts, 4.0));
    course.clear();
    for (std::size_t i = 0; i <= count; ++i) {
        double at = start + sweep * double(i) / double(count);
        course.push_back({centre.x + radius * std::cos(at), centre.y + radius * std::sin(at)});
    }
}

bool ClipSegment(const PixelBox& box, PlanePoint& from, PlanePoint& to) {
    if (box.Holds(from) && box.Holds(to)) return true;
    double dx = to.x - from.x, dy = to.y - from.y, enter = 0, leave = 1;
    // `towards` is the segment's approach to a side, `left` its start's distance from the side.
    auto cut = [&](double towards, double left) {
        if (towards == 0) return left >= 0;
        double share = left / towards;
        if (towards < 0)
            enter = std::max(enter, share);
        else
            leave = std::min(leave, share);
        return enter <= leave;
    };
    if (!cut(-dx, from.x - box.left) || !cut(dx, box.right - from.x) || !cut(-dy, from.y - box.top) ||
        !cut(dy, box.bottom - from.y))
        return false;
    PlanePoint start = from;
    if (enter > 0) from = {start.x + dx * enter, start.y + dy * enter};
    if (leave < 1) to = {start.x + dx * leave, start.y + dy * leave};
    return IsFinite(from) && IsFinite(to);
}

void ClipRing(const PixelBox& box, std::span<const PlanePoint> ring, Course& clipped, Course& work) {
    clipped.assign(ring.begin(), ring.end());
    if (std::all_of(ring.begin(), ring.end(), [&](PlanePoint p) { return box.Holds(p); })) return;
    CutSide(clipped, work, [&](PlanePoint p) { return p.x - box.left; });
    CutSide(clipped, work, [&](PlanePoint p) { return box.right - p.x; });
    CutSide(clipped, work, [&](PlanePoint p) { return p.y - box.top; });
    CutSide(clipped, work, [&](PlanePoint p) { return box.bottom - p.y; });
}

}  // namespace vexlator::render
