// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The parts of JSON text (RFC 8259), added to a buffer.
namespace vexlator::util {

/// The text in double quotes, escaped where JSON asks for it. Bytes that are not UTF-8 are read as
/// Windows-1252, so that the result always is.
void AppendText(std::string& out, std::string_view text);

/// The shortest text that reads back as the same double. JSON has no word for infinite and NaN: they become
/// null.
void AppendNumber(std::string& out, double value);
void AppendNumber(std::string& out, std::int64_t value);

inline void AppendFlag(std::string& out, bool value) {
    out += value ? "true" : "false";
}

}  // namespace vexlator::util
