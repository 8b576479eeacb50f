// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/Conversions.h"

#include <string>
#include <string_view>

namespace vexlator::startup {

/// The command without switches, without the quotes around it, then without blanks. A quoted command followed
/// by a blank keeps its last quote. If this does not name an existing file, more is removed: pairs of double
/// quotes around it and its paths, straight or typographic; single quotes around the whole; "-quiet" and
/// "--quiet" in any letter case as separate words; line ends. A command that names an existing file in a
/// known format stays unchanged.
std::string Tidied(const Conversions& conversions, std::string_view text);

/// The text without the single quotes around it, straight or not.
std::string_view WithoutSingleQuotes(std::string_view text);

}  // namespace vexlator::startup
