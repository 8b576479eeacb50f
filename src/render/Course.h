// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/LineTypes.h"
#include "util/Placement.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>
#include <vector>

/// Lines and rings in pixels, with as few points as show the same, and none far outside the picture.
namespace vexlator::render {

using drawing::LineType;
using util::Placement;
using util::PlanePoint;

using Course = std::vector<PlanePoint>;

/// A part of the picture, in pixels.
struct PixelBox {
    double left, top, right, bottom;
    bool Holds(PlanePoint p) const { return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom; }
    PixelBox Grown(double by) const { return {left - by, top - by, right + by, bottom + by}; }
};

/// The points in pixels, without points nearer than `tolerance` pixels to the previous one, and without
/// points that are not finite. With `isRing` the first point is repeated at the end.
void Project(std::span<const PlanePoint> points, const Placement& toPixels, double tolerance, bool isRing,
             Course& course);

/// The vertices of a circle or arc with this radius in pixels, as a polygon with an error below a quarter of
/// a pixel. Angles in radians, counter-clockwise.
void CurveOf(PlanePoint centre, double radius, double start, double sweep, double pixelsPerUnit,
             Course& course);

/// Calls `visit(course)` for the parts of a course that touch the box. A part extends at most one segment
/// outside of it.
template <typename Visit>
void ForEachPartIn(const PixelBox& box, std::span<const PlanePoint> course, Course& part, Visit visit);

/// The part of a segment inside the box; false if there is none.
bool ClipSegment(const PixelBox& box, PlanePoint& from, PlanePoint& to);

/// The part of a ring inside the box, as a ring.
void ClipRing(const PixelBox& box, std::span<const PlanePoint> ring, Course& clipped, Course& work);

/// The position of a gap for a text, and the direction of the line there.
struct PatternText {
    PlanePoint middle;
    double angle;  ///< radians, clockwise, as in pixel coordinates
    std::string_view text;
};

/// Splits a course into the dashes of a line type.
class Pattern {
public:
    /// `pixelsPerUnit` converts the line type's lengths.
    Pattern(const LineType& type, double pixelsPerUnit) : type_(type), scale_(pixelsPerUnit) {}
    /// A shorter period looks like a grey line, a longer one like a solid line.
    bool IsVisible() const {
        double period = type_.Period() * scale_;
        return period >= leastPeriod && period <= mostPeriod;
    }
    /// The dashes inside the box, each as its own course, and the texts between them.
    template <typename Dash, typename Gap>
    void Cut(const PixelBox& box, std::span<const PlanePoint> course, Dash dash, Gap gap) const;

    static constexpr double leastPeriod = 5, mostPeriod = 1e5;  ///< pixels

private:
    /// `phase`: where the segment begins within two periods of the pattern.
    template <typename Dash, typename Gap>
    void CutSegment(PlanePoint from, PlanePoint to, double phase, Dash dash, Gap gap) const;

    const LineType& type_;
    double scale_;
};

template <typename Visit>
void ForEachPartIn(const PixelBox& box, std::span<const PlanePoint> course, Course& part, Visit visit) {
    part.clear();
    for (std::size_t i = 1; i < course.size(); ++i) {
        PlanePoint from = course[i - 1], to = course[i];
        if (!ClipSegment(box, from, to)) continue;
        if (part.empty() || !(part.back() == from)) {
            if (part.size() > 1) visit(part);
            part.assign(1, from);
        }
        part.push_back(to);
    }
    if (part.size() > 1) visit(part);
}

template <typename Dash, typename Gap>
void Pattern::Cut(const PixelBox& box, std::span<const PlanePoint> course, Dash dash, Gap gap) const {
    double done = 0;  // pixels along the course so far
    for (std::size_t i = 1; i < course.size(); ++i) {
        PlanePoint from = course[i - 1], to = course[i];
        double length = std::hypot(to.x - from.x, to.y - from.y);
        if (ClipSegment(box, from, to)) {
            double skipped = std::hypot(from.x - course[i - 1].x, from.y - course[i - 1].y);
            CutSegment(from, to, std::fmod(done + skipped, 2 * type_.Period() * scale_), dash, gap);
        }
        done += length;
    }
}

template <typename Dash, typename Gap>
void Pattern::CutSegment(PlanePoint from, PlanePoint to, double phase, Dash dash, Gap gap) const {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    // Very far along a course the phase has no precision left.
    if (!std::isfinite(phase)) phase = 0;
    if (!(length > 0)) return;
    const PlanePoint step{(to.x - from.x) / length, (to.y - from.y) / length};
    const double angle = std::atan2(step.y, step.x);
    auto at = [&](double along) { return PlanePoint{from.x + step.x * along, from.y + step.y * along}; };
    std::size_t texts = type_.texts[1].empty() ? 1 : 2, gaps = 0;
    for (double mark = -phase; mark < length;) {
        for (std::size_t k = 0; k < type_.lengths.size() && type_.lengths[k] > 0; ++k) {
            double next = mark + type_.lengths[k] * scale_, middle = (mark + next) / 2;
            bool isDash = k % 2 == 0;
            if (isDash && std::max(mark, 0.0) < std::min(next, length))
                dash(at(std::max(mark, 0.0)), at(std::min(next, length)));
            if (!isDash && middle >= 0 && middle < length && !type_.texts[0].empty())
                gap(PatternText{at(middle), angle, type_.texts[gaps % texts]});
            gaps += isDash ? 0 : 1;
            mark = next;
        }
    }
}

}  // namespace vexlator::render
