// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/Conversions.h"

#include <string>
#include <string_view>

namespace vexlator::startup {

/// The command, its switches off, without the quotes around it, then without the blanks: a quoted command
/// that a blank follows keeps its last quote. Where that names no file that is there, it goes also without
/// what people put around it and its paths: double quotes in pairs, be they straight or those of a text
/// processor, single ones around the whole, "-quiet" and "--quiet" in any letter case as words of their own,
/// line ends. A command that names a file which is there, in a format that is known, stays as it is.
std::string Tidied(const Conversions& conversions, std::string_view text);

/// The text without the single quotes around it, straight or not.
std::string_view WithoutSingleQuotes(std::string_view text);

}  // namespace vexlator::startup
