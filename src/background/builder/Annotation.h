// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/PackageWriter.h"
#include "util/Geometry.h"

#include <span>
#include <string_view>

namespace vexlator::background {

/// Where the annotation of a feature stands. Units of the drawing, radians counter-clockwise.
struct AnnotationPlace {
    util::PlanePoint at;
    double height = 1;
    double angle = 0;
};

/// Of a closed line: the centre of its box, and a larger text when it is larger than 1,000 square units.
/// @param points at least one
AnnotationPlace PlaceInOutline(std::span<const util::PlanePoint> points);
/// Of an open line: its middle vertex, along the line as it comes there, never upside down.
/// @param points at least one
AnnotationPlace PlaceAlongLine(std::span<const util::PlanePoint> points);

/// Writes the text, each of its lines (they are separated by commas) as an element of its own below the one
/// before it, with the writer's current feature header.
void WriteAnnotation(PackageWriter& writer, const AnnotationPlace& place, std::string_view text);

}  // namespace vexlator::background
