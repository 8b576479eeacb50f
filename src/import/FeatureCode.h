// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <string>
#include <string_view>

namespace vexlator::importer {

/// The feature code for a source file: its base name in capitals. In a name with blanks, only the part after
/// the last blank. In a long name, only the last 14 characters.
std::string FeatureCodeOf(std::string_view path);

/// Converts ASCII letters and the Latin letters of Windows-1252 to capitals.
std::string Capitals(std::string_view text);

/// The colour in the STYLE text of a template: field 2, limited to 24 bits.
drawing::Colour StyleColour(std::string_view style);

}  // namespace vexlator::importer
