// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Texts as a terminal or a log can be trusted with: they may come from any file, so control characters,
/// which could move the cursor, hide a line or send an answer, become "?"; so do bytes that are not UTF-8.
namespace vexlator::ui {

/// Line breaks and tabs become blanks.
std::string OneLine(std::string_view text);

/// Line breaks stay, and every line but the first is indented by two blanks: a text cannot pass for a message
/// of its own. Line breaks at the end are dropped.
std::string IndentedLines(std::string_view text);

}  // namespace vexlator::ui
