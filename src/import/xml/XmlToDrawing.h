// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "formats/xml/ByteBlocks.h"
#include "import/xml/DrawingBuilder.h"

#include <functional>

namespace vexlator::importer {

/// Adds the drawing of a document in the open XML layout (formats/drawingxml) to another one. Calls
/// `entityDone` after every entity, which may then take the entities away.
/// @throws platform::ReadError with a line, without a file name: no such document, an unknown element or
/// attribute, a value that is none, two entities with one handle, blocks in blocks deeper than 16
void XmlToDrawing(formats::ByteBlocks& blocks, drawing::Drawing& drawing, DrawingBuilder::Into into,
                  const std::function<void()>& entityDone);

}  // namespace vexlator::importer
