// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <cstdint>
#include <string_view>

/// Text of any origin in XML 1.0 documents encoded in UTF-8.
namespace vexlator::formats {

/// Writes a text so that it reads back the same as character data, as an attribute value in double quotes,
/// and as HTML inside a CDATA section. The text cannot end any of these:
/// - & < > " become references; a carriage return too, because readers convert it to a line feed;
/// - characters that XML cannot hold (most below U+0020, U+FFFE, U+FFFF) become "?";
/// - a text that is not UTF-8 is read as Windows-1252.
///
/// Returns the number of characters that became "?".
/// @throws platform::WriteError
std::uint64_t WriteXmlText(platform::OutputFile& file, std::string_view text);

}  // namespace vexlator::formats
