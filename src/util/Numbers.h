// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Numbers and text, the same on every system: "." is the decimal point whatever the locale says.
namespace vexlator::util {

/// The number at the start of the text, after blanks. 0 if the text does not start with a number. Never
/// infinite, never NaN.
double NumberOf(std::string_view text);
/// The whole number at the start of the text, clamped to the range of the result.
std::int64_t IntegerOf(std::string_view text);
/// Fixed decimals (0 to 15), half rounded away from zero, no "-0". Rounding uses the shortest decimal text of
/// the value: 1.0005 with 3 decimals gives "1.001". An infinite value or NaN gives the text of 0.
std::string FormatFixed(double value, int decimals);
/// FormatFixed into a buffer of at least `longestFixed` bytes; returns the end of the text.
char* WriteFixed(char* out, double value, int decimals);
constexpr std::size_t longestFixed = 328;  ///< sign, 309 digits, point, 15 decimals, one to spare
/// The value of FormatFixed's text, without making the text.
double RoundFixed(double value, int decimals);
/// The shortest text that reads back as the same value; "0" for infinite and NaN.
std::string FormatShortest(double value);
/// The same, into a buffer of at least `longestShortest` bytes. Returns the end of the text. Grid coordinates
/// have plain digits. Values from 1e15 on and values close to 0 have an exponent.
char* WriteShortest(char* out, double value);
constexpr std::size_t longestShortest = 40;
/// Padded with zeros on the left to at least `digits` digits.
std::string ZeroPadded(std::int64_t value, int digits);
/// With commas between thousands, for people: 12345 gives "12,345".
std::string GroupedCount(std::uint64_t value);

}  // namespace vexlator::util
