// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <array>
#include <vector>

/// Outlines of the MapInfo objects that are defined by a bounding box, as polylines.
namespace vexlator::formats {

/// The box of an object, by any two opposite corners.
struct MifBox {
    double x1, y1, x2, y2;
};

/// Seven vertices around the box, the last equal to the first. Their distance from its centre is the box's
/// diagonal.
std::array<util::PlanePoint, 7> EllipseVertices(const MifBox& box);
/// Part of the ellipse in the box, counter-clockwise from one angle to the other, in degrees.
std::vector<util::PlanePoint> ArcVertices(const MifBox& box, double beginDegrees, double endDegrees);
/// The box itself, closed by its first corner; `rounding` is the diameter of its corners.
std::vector<util::PlanePoint> RectangleVertices(const MifBox& box, double rounding);

}  // namespace vexlator::formats
