// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <functional>
#include <string_view>

namespace vexlator::vdfjson {

/// Takes the next piece of a text that is too large to be held at once.
using TextSink = std::function<void(std::string_view)>;

/// A drawing as GeoJSON (RFC 7946) that holds everything of it, one feature per line, always in UTF-8.
///
/// Of each feature, `geometry` and `properties` are for GIS viewers and `vdf` is the entity itself:
/// - A position or course that has a number that is not finite, or too few vertices to be one, has the
/// geometry
///   null. So has an entity of an unknown kind, because nothing says what its vertices mean.
/// - A closed polyline is a polygon when its ring has at least four positions, the first repeated at the end.
/// - Where a kind that stands at a point has other than one vertex, `vdf` has `vertices` instead of
/// `position`.
/// - An attribute name that occurs again is left out in `properties`; `vdf.xproperties` has every one.
/// - A number in `vdf` that is not finite is null, which no reader takes for a coordinate.
/// - A block is an object with the members that describe a drawing and its `entities`, which are features.
/// - A block of which only the name is known is that name. So is one whose content is no drawing, lies more
/// than 16 blocks deep, or is behind the first gigabyte of content; `note` is then told.
void DrawingToJson(
    drawing::Drawing& drawing, const TextSink& sink, const TextSink& note = [](std::string_view) {});

}  // namespace vexlator::vdfjson
