// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Delimited text. Fields are numbered from 0; a delimiter is one or more characters.
namespace vexlator::util {

/// Field number `index`; the last field runs to the end; "" when the text has fewer.
std::string_view GetField(std::size_t index, std::string_view text, std::string_view delimiter);
std::string_view GetCommaField(std::size_t index, std::string_view text);
/// GetCommaField read as a number; 0 when it is not one.
double GetCommaNumber(std::size_t index, std::string_view text);
std::string_view GetBarField(std::size_t index, std::string_view text);
/// How often `part` occurs, with overlaps: "aa" occurs twice in "aaa".
std::size_t CountOf(std::string_view text, std::string_view part);
/// Position of `part` in bytes, from 1; 0 if absent. Ignores the case of ASCII letters.
std::size_t InStrNoCase(std::string_view text, std::string_view part);
/// Spaces, tabs and line ends.
constexpr std::string_view lineBlanks = " \t\r\n";
/// Removes the characters of `blanks`, by default spaces only, at both ends. A text of blanks alone gives the
/// empty end of the text.
constexpr std::string_view Trim(std::string_view text, std::string_view blanks = " ") {
    auto isBlank = [blanks](char c) {
        for (char blank : blanks)
            if (c == blank) return true;
        return false;
    };
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view by);
/// Blanks become "_"; the name DATE (any letter case) becomes "gvDate".
std::string FieldNameFor(std::string_view name);

/// Letters, digits and the characters of `plain` stay; every other byte becomes % and two hexadecimal digits
/// (RFC 3986, section 2.1).
std::string PercentEncoded(std::string_view text, std::string_view plain);

}  // namespace vexlator::util
