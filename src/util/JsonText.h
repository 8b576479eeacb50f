// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Appends parts of JSON text (RFC 8259) to a buffer.
namespace vexlator::util {

/// Appends the text in double quotes, with escapes where JSON requires them. Bytes that are not UTF-8 are
/// read as Windows-1252, so the result is always UTF-8.
void AppendText(std::string& out, std::string_view text);

/// Appends the shortest text that reads back as the same double. Infinite and NaN become null, because JSON
/// cannot express them.
void AppendNumber(std::string& out, double value);
void AppendNumber(std::string& out, std::int64_t value);

inline void AppendFlag(std::string& out, bool value) {
    out += value ? "true" : "false";
}

}  // namespace vexlator::util
