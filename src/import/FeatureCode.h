// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vexlator::importer {

/// The feature code for a source file: its base name; of one with blanks only what follows the last; of a
/// long one the last 14 characters; in capitals.
std::string FeatureCodeOf(std::string_view path);

}  // namespace vexlator::importer
