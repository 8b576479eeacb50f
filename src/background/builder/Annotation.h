// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/PackageWriter.h"
#include "util/Geometry.h"

#include <span>
#include <string_view>

namespace vexlator::background {

/// Height of a symbol's annotation, in the symbol's size.
constexpr double annotationPerSymbol = 1.0 / 3;

/// Where the annotation of a feature stands. Units of the drawing, radians counter-clockwise.
struct AnnotationPlace {
    util::PlanePoint at;
    double height = 1;
    double angle = 0;
};

/// For a closed line: the centre of its box, with a larger text if the box is larger than 1,000 square units.
/// @param points at least one
AnnotationPlace PlaceInOutline(std::span<const util::PlanePoint> points);
/// For an open line: its middle vertex, in the direction of the line before it, never upside down.
/// @param points at least one
AnnotationPlace PlaceAlongLine(std::span<const util::PlanePoint> points);

/// Writes the text. Commas separate its lines. Each line is a separate element below the previous one, with
/// the writer's current feature header.
void WriteAnnotation(PackageWriter& writer, const AnnotationPlace& place, std::string_view text);

}  // namespace vexlator::background
