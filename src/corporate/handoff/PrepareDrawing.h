// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "export/LayerLoop.h"

#include <string_view>

namespace vexlator::corporate {

enum class AttributeNames { Whole, CutToTen };

/// Writes the drawing back to its file, if the photographs' paths or the names of attributes change.
/// @throws platform::ReadError, platform::WriteError
void PrepareDrawing(const exporter::BegunExport& begun, std::string_view drawingPath, AttributeNames names);

}  // namespace vexlator::corporate
