// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xml/XmlName.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vexlator::formats {

namespace {

using Range = std::pair<char32_t, char32_t>;

/// Characters that may begin a name, and those that may only follow: ASCII, and the usual letters of Latin,
/// Greek, Cyrillic and East Asian scripts. All editions of XML 1.0 allow these; the fourth, on which schemas
/// rest, allows few others.
constexpr std::array<Range, 23> first = {
    {{'A', 'Z'},       {'_', '_'},       {'a', 'z'},       {0xC0, 0xD6},     {0xD8, 0xF6},    {0xF8, 0x131},
     {0x134, 0x13E},   {0x141, 0x148},   {0x14A, 0x17E},   {0x386, 0x386},   {0x388, 0x38A},  {0x38C, 0x38C},
     {0x38E, 0x3A1},   {0x3A3, 0x3CE},   {0x401, 0x40C},   {0x40E, 0x44F},   {0x451, 0x45C},  {0x45E, 0x481},
     {0x3041, 0x3094}, {0x30A1, 0x30FA}, {0x3105, 0x312C}, {0x4E00, 0x9FA5}, {0xAC00, 0xD7A3}}};
constexpr std::array<Range, 3> later = {{{'-', '-'}, {'.', '.'}, {'0', '9'}}};

template <std::size_t count>
bool IsIn(const std::array<Range, count>& ranges, char32_t c) {
    return std::ranges::any_of(ranges,
                               [c](const Range& range) { return c >= range.first && c <= range.second; });
}

}  // namespace

std::string XmlNameOf(std::string_view text) {
    std::string utf8 = platform::AsUtf8(text), name;
    for (std::string_view left = utf8; !left.empty();) {
        char32_t c = 0;
        left.remove_prefix(platform::DecodeUtf8(left, c));
        bool begins = IsIn(first, c), follows = begins || IsIn(later, c);
        if (name.empty() && !begins) name += '_';
        if (follows)
            platform::AppendUtf8(name, c);
        else if (name != "_")
            name += '_';
    }
    return name.empty() ? "_" : name;
}

std::string XmlNames::Take(std::string_view text) {
    const std::string name = XmlNameOf(text);
    std::string candidate = name;
    for (int n = 2; reserved_.contains(candidate) || !taken_.insert(platform::LowerAscii(candidate)).second;
         ++n)
        candidate = name + "_" + std::to_string(n);
    return candidate;
}

}  // namespace vexlator::formats
