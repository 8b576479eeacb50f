// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Utf16.h"

#include "platform/CodePages.h"

#include <cstdint>

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

void AppendUtf8(std::string& out, char32_t character) {
    int more = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    constexpr unsigned char leads[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(leads[more] | (character >> (6 * more)));
    while (more-- > 0) out += static_cast<char>(0x80 | ((character >> (6 * more)) & 0x3F));
}

/// Takes the first character off a text that is not empty.
char32_t TakeCharacter(std::string_view& text) {
    auto lead = static_cast<unsigned char>(text.front());
    std::size_t size = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (!IsUtf8(text.substr(0, size))) size = 0;
    if (size == 0) {
        text.remove_prefix(1);
        return replacement;
    }
    char32_t character = size == 1 ? lead : lead & (0xFFU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) character = (character << 6) | (text[i] & 0x3F);
    text.remove_prefix(size);
    return character;
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
