// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <string_view>

namespace vexlator::util {

/// Appends one line: DayMonthText, a blank, TimeText, ": " and the text. An empty path writes nothing.
/// @throws platform::WriteError
void WriteRunLog(std::string_view logPath, std::string_view text, const platform::DateTime& when);

}  // namespace vexlator::util
