// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// The quoting of delimited text, as RFC 4180 has it: a field that would be misread is enclosed in double
/// quotes, and those inside it are doubled.
namespace vexlator::formats {

/// Whether a field holds the delimiter, a double quote or a line end.
bool NeedsQuotes(std::string_view field, char delimiter);

/// Whether a field is ASCII without control characters, commas and double quotes: it stands in any delimited
/// text as it is. Most fields are so.
bool IsSimple(std::string_view field);

/// Adds the field in double quotes.
void AppendQuoted(std::string& target, std::string_view field);

}  // namespace vexlator::formats
