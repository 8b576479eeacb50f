// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/JsonText.h"

#include "platform/CodePages.h"
#include "util/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

namespace vexlator::util {

namespace {

constexpr std::size_t longestNumber = 32;

bool NeedsEscape(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

/// True if the text needs no escapes between quotes: no control character, quote, backslash or byte from 0x80
/// on. Looks at eight bytes at a time, because most attribute values need no escapes.
bool IsPlain(std::string_view text) {
    constexpr std::uint64_t ones = 0x0101010101010101U, highs = 0x8080808080808080U;
    auto hasZero = [](std::uint64_t word) { return (word - ones) & ~word & highs; };
    const char* p = text.data();
    std::size_t left = text.size();
    for (; left >= 8; left -= 8, p += 8) {
        std::uint64_t word;
        std::memcpy(&word, p, 8);
        std::uint64_t below0x20 = (word - ones * 0x20) & ~word;
        if (((below0x20 | word) & highs) | hasZero(word ^ ones * '"') | hasZero(word ^ ones * '\\'))
            return false;
    }
    for (; left > 0; --left, ++p)
        if (NeedsEscape(*p) || static_cast<unsigned char>(*p) >= 0x80) return false;
    return true;
}

void AppendEscape(std::string& out, char c) {
    constexpr std::string_view digits = "0123456789abcdef";
    switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            out += "\\u00";
            out += digits[static_cast<unsigned char>(c) >> 4];
            out += digits[static_cast<unsigned char>(c) & 0xF];
    }
}

void AppendEscaped(std::string& out, std::string_view text) {
    std::size_t done = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!NeedsEscape(text[i])) continue;
        out += text.substr(done, i - done);
        AppendEscape(out, text[i]);
        done = i + 1;
    }
    out += text.substr(done);
}

}  // namespace

void AppendText(std::string& out, std::string_view text) {
    out += '"';
    if (IsPlain(text))
        out += text;
    else if (platform::IsUtf8(text))
        AppendEscaped(out, text);
    else
        AppendEscaped(out, platform::Utf8FromWindows1252(text));
    out += '"';
}

void AppendNumber(std::string& out, double value) {
    if (!std::isfinite(value)) {
        out += "null";
        return;
    }
    if (value == 0) {
        out += std::signbit(value) ? "-0.0" : "0";  // "-0" reads as the whole number 0
        return;
    }
    std::array<char, longestShortest> digits;
    out.append(digits.data(), WriteShortest(digits.data(), value));
}

void AppendNumber(std::string& out, std::int64_t value) {
    std::array<char, longestNumber> digits;
    out.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
}

}  // namespace vexlator::util
