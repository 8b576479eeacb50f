// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Letter case of ASCII letters, in any locale. Other bytes stay as they are. File names, keys and codes are
/// compared this way.
namespace vexlator::platform {

/// The small letter for a capital letter; other bytes stay.
constexpr char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
/// The capital letter for a small letter; other bytes stay.
constexpr char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Equal except for letter case.
bool SameNoCase(std::string_view a, std::string_view b);

/// Order of `a` and `b` in a listing without letter case: below 0, 0 or above 0.
int CompareNoCase(std::string_view a, std::string_view b);

std::string LowerAscii(std::string_view text);
std::string UpperAscii(std::string_view text);

}  // namespace vexlator::platform
