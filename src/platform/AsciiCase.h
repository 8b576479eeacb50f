// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Letter case of ASCII letters, whatever the locale says; other bytes are taken as they are. File names,
/// keys and codes are compared this way.
namespace vexlator::platform {

/// The small letter of a capital one; other bytes stay.
constexpr char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
/// The capital of a small letter; other bytes stay.
constexpr char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Equal but for letter case.
bool SameNoCase(std::string_view a, std::string_view b);

/// Below, equal to or above 0 as `a` stands before, beside or behind `b` in a listing without letter case.
int CompareNoCase(std::string_view a, std::string_view b);

std::string LowerAscii(std::string_view text);
std::string UpperAscii(std::string_view text);

}  // namespace vexlator::platform
