// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <string_view>

namespace vexlator::vdfjson {

/// Adds the contents of a GeoJSON document (a FeatureCollection, one Feature or one geometry) to an empty
/// drawing.
///
/// - A feature with a member `vdf` is the entity in it; see DrawingToJson(). Missing or null members have
///   their defaults: kind VDPOINT, layer "0", position [0,0,0], scale [1,1], colours 7; all others are "", 0,
///   false or none.
/// - Every other feature is read by PlainFeatureReader; `plainLayer` is the layer of features that name none.
///   All features of a layer have the same attribute names; if they differ in the document, it is read twice.
/// - `id`, if it is a new hexadecimal text, becomes the (first) entity's handle.
/// - Layer "0" is always the first one, as in every new drawing.
/// - A block that is an object with `entities` gets its content from them; they are features of both kinds.
///
/// @throws platform::ReadError: byte or feature number, and the reason; the drawing is then unusable.
void JsonToDrawing(std::string_view json, std::string_view plainLayer, drawing::Drawing& drawing);

}  // namespace vexlator::vdfjson
