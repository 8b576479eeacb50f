// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Utf16.h"

#include "platform/CodePages.h"

#include <algorithm>

namespace vexlator::platform {

namespace {

constexpr char32_t replacement = 0xFFFD;

void AppendUnit(std::string& out, char32_t unit) {
    out += static_cast<char>(unit & 0xFF);
    out += static_cast<char>(unit >> 8);
}

void AppendUtf16(std::string& out, char32_t character) {
    if (character < 0x10000) return AppendUnit(out, character);
    AppendUnit(out, 0xD800 + ((character - 0x10000) >> 10));
    AppendUnit(out, 0xDC00 + ((character - 0x10000) & 0x3FF));
}

/// Removes and returns the first character of a text that is not empty.
char32_t TakeCharacter(std::string_view& text) {
    char32_t character = replacement;
    std::size_t size = DecodeUtf8(text, character);
    text.remove_prefix(std::max<std::size_t>(size, 1));
    return size == 0 ? replacement : character;
}

}  // namespace

std::string Utf16FromUtf8(std::string_view text) {
    std::string out;
    while (!text.empty()) AppendUtf16(out, TakeCharacter(text));
    return out;
}

std::string Utf8FromUtf16(std::string_view bytes) {
    std::string out;
    auto unitAt = [&](std::size_t i) -> char32_t {
        if (i + 1 >= bytes.size()) return 0;
        return static_cast<unsigned char>(bytes[i]) | char32_t{static_cast<unsigned char>(bytes[i + 1])} << 8;
    };
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        char32_t unit = unitAt(i), next = unitAt(i + 2);
        bool isPair = (unit & 0xFC00) == 0xD800 && (next & 0xFC00) == 0xDC00;
        if (isPair) {
            AppendUtf8(out, 0x10000 + ((unit & 0x3FF) << 10) + (next & 0x3FF));
            i += 2;
        } else {
            AppendUtf8(out, (unit & 0xF800) == 0xD800 ? replacement : unit);
        }
    }
    return out;
}

}  // namespace vexlator::platform
