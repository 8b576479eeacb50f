// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "util/Geometry.h"
#include "util/Placement.h"

#include <span>
#include <vector>

namespace vexlator::background {

using util::Placement;

/// The course of a polyline, or of a curve turned into one, as a package takes it.
class Outline {
public:
    /// The course of a polyline. One of more than 16,000 vertices loses every second of them, but never the
    /// first two and the last. It is closed when the drawing says so or when its ends lie less than 0.01
    /// apart; one whose ends lie further apart is led back to its first vertex.
    /// @param placement where the symbol stands that the polyline is part of; nullptr for none
    void TakePolyline(const drawing::Entity& polyline, const Placement* placement);
    /// The vertices of a line, which has no closed side.
    void TakeLine(const drawing::Entity& line, const Placement* placement);
    /// The course of a circle or an arc: a vertex for every 0.25 units of its length, 20 when that gives
    /// none, 65,000 at most; then as for a polyline. A circle is closed.
    void TakeCurve(const drawing::Entity& curve, const Placement* placement);

    std::span<const util::PlanePoint> Points() const { return points_; }
    bool IsClosed() const { return isClosed_; }

private:
    void Take(std::span<const util::PlanePoint> points, const Placement* placement, bool isMarkedClosed);
    std::span<const util::PlanePoint> points_;
    std::vector<util::PlanePoint> own_, curve_;
    bool isClosed_ = false;
};

}  // namespace vexlator::background
