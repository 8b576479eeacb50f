// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <string_view>

namespace vexlator::vdfjson {

/// Adds what a GeoJSON document holds (a FeatureCollection, one Feature or one geometry) to an empty drawing.
///
/// - A feature with a member `vdf` is the entity that stands there; see DrawingToJson(). Members that are
/// missing, or null, have their defaults: kind VDPOINT, layer "0", position [0,0,0], scale [1,1], colours 7;
/// all else is "", 0, false or none.
/// - Every other feature is read as PlainFeatureReader has it; `plainLayer` is the layer of those that name
/// none. All of a layer have the same attribute names; where they differ in the document, it is read twice.
/// - `id`, when it is a hexadecimal text that no entity before has, becomes the (first) entity's handle.
/// - Layer "0" is always the first one, as in every new drawing.
/// - A block that is an object with `entities` has its content from them; they are features of both kinds.
///
/// @throws platform::ReadError: byte or feature number, and the reason; the drawing is then of no use.
void JsonToDrawing(std::string_view json, std::string_view plainLayer, drawing::Drawing& drawing);

}  // namespace vexlator::vdfjson
