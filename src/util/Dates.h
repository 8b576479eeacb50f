// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <string>
#include <string_view>

namespace vexlator::util {

/// "JAN" to "DEC"; "" for numbers outside 1 to 12.
std::string_view MonthAbbrev(int month);
std::string DayMonthText(const platform::DateTime& when);      ///< 05MAR
std::string DayMonthYearText(const platform::DateTime& when);  ///< 05MAR2024
std::string TimeText(const platform::DateTime& when);          ///< 14:07
std::string SlashDateText(const platform::DateTime& when);     ///< 05/03/2024

}  // namespace vexlator::util
