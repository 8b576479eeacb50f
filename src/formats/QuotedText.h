// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// The quoting of delimited text by RFC 4180, section 2: a field that would be misread is enclosed in double
/// quotes, and double quotes inside it are doubled.
namespace vexlator::formats {

/// Whether a field holds the delimiter, a double quote or a line end.
bool NeedsQuotes(std::string_view field, char delimiter);

/// Whether a field is ASCII without control characters, commas and double quotes, as most fields are. Such a
/// field needs no change in any delimited text.
bool IsSimple(std::string_view field);

/// Appends the field in double quotes.
void AppendQuoted(std::string& target, std::string_view field);

}  // namespace vexlator::formats
