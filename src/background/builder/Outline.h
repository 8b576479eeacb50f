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

/// The outline of a polyline, or of a converted curve, in the form of a package.
class Outline {
public:
    /// The outline of a polyline. One with more than 16,000 vertices loses every second vertex, but never the
    /// first two and the last. It is closed if the drawing says so or if its ends are less than 0.01 apart.
    /// In the former case with more distant ends, the first vertex is repeated at the end.
    /// @param placement of the symbol that contains the polyline; nullptr for none
    void TakePolyline(const drawing::Entity& polyline, const Placement* placement);
    /// The vertices of a line, which has no closed side.
    void TakeLine(const drawing::Entity& line, const Placement* placement);
    /// The outline of a circle or an arc: a vertex for every 0.25 units of its length, but 20 if that gives
    /// none, and at most 65,000; then as for a polyline. A circle is closed.
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
