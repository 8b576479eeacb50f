// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers and text, the same on every system: "." is the decimal point whatever the locale says.
namespace vexlator::util {

/// The leading number of the text, blanks before it skipped; 0 when it does not begin with one.
/// Never infinite, never NaN.
double NumberOf(std::string_view text);
/// The leading whole number, kept within the range of the result.
std::int64_t IntegerOf(std::string_view text);
/// Fixed decimals, half rounded away from zero, no "-0": 1.0005 with 3 decimals gives "1.001". `decimals` is
/// 0 to 15.
std::string FormatFixed(double value, int decimals);
/// The value that FormatFixed's text stands for, without the text.
double RoundFixed(double value, int decimals);
/// The shortest text that reads back as the same value.
std::string FormatShortest(double value);
/// Padded with zeros on the left to at least `digits` digits.
std::string ZeroPadded(std::int64_t value, int digits);
/// With commas between thousands, for people: 12345 gives "12,345".
std::string GroupedCount(std::uint64_t value);

}  // namespace vexlator::util
