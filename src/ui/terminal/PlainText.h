// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Makes texts safe for a terminal or a log. They may come from any file. Control characters, which could
/// move the cursor, hide a line or send an answer, become "?". Bytes that are not UTF-8 become "?" too.
namespace vexlator::ui {

/// Line breaks and tabs become blanks.
std::string OneLine(std::string_view text);

/// Line breaks stay, and every line but the first is indented by two blanks, so that a text cannot look like
/// a message of its own. Line breaks at the end are dropped.
std::string IndentedLines(std::string_view text);

}  // namespace vexlator::ui
