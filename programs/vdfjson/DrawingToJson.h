// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <functional>
#include <string_view>

namespace vexlator::vdfjson {

/// Takes the next piece of a text that is too large to be held as a whole.
using TextSink = std::function<void(std::string_view)>;

/// Writes a whole drawing as GeoJSON (RFC 7946), one feature per line, always in UTF-8.
///
/// In each feature, `geometry` and `properties` are for GIS viewers, and `vdf` is the entity itself:
/// - The geometry is null for a position or line with a number that is not finite, or with too few vertices.
///   It is also null for an entity of an unknown kind, because the meaning of its vertices is unknown.
/// - A closed polyline is a polygon if its ring has at least four positions, with the first repeated at the
///   end.
/// - If a point-like kind does not have exactly one vertex, `vdf` has `vertices` instead of `position`.
/// - A repeated attribute name is left out in `properties`; `vdf.xproperties` has every one.
/// - A number in `vdf` that is not finite is null, which no reader takes for a coordinate.
/// - A block is an object with the members that describe a drawing and its `entities`, which are features.
/// - A block without contents is its name. The same holds if its content is not a drawing, is
///   more than 16 blocks deep, or comes after the first gigabyte of content; `note` is then called.
void DrawingToJson(
    drawing::Drawing& drawing, const TextSink& sink, const TextSink& note = [](std::string_view) {});

}  // namespace vexlator::vdfjson
