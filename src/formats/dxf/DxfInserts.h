// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/dxf/DxfWriter.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace vexlator::formats {

/// The colours of those inserts of a DXF file in text form that have one of their own, by the inserts'
/// handles.
std::unordered_map<std::string, DxfColour> ReadDxfInsertColours(std::string_view text);

}  // namespace vexlator::formats
