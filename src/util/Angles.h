// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Angles, in radians unless stated, and their texts.
namespace vexlator::util {

constexpr double degreesPerRadian = 57.2957795130823;

/// DDD.MM'SS" and, when `decimals` is given, that many decimals of a second after the quote.
std::string FormatAngleText(double radians, std::optional<int> decimals = std::nullopt);
/// The inverse of FormatAngleText, in radians; nothing if the text has another form.
std::optional<double> ParseAngleText(std::string_view text);

}  // namespace vexlator::util
