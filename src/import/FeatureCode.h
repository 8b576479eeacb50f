// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <string>
#include <string_view>

namespace vexlator::importer {

/// The feature code for a source file: its base name; of one with blanks only what follows the last; of a
/// long one the last 14 characters; in capitals.
std::string FeatureCodeOf(std::string_view path);

/// Capitals of ASCII and of the Latin letters that Windows-1252 holds.
std::string Capitals(std::string_view text);

/// The colour that a template's STYLE text gives its features: field 2, kept within 24 bits.
drawing::Colour StyleColour(std::string_view style);

}  // namespace vexlator::importer
