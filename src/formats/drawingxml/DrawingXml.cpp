// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/drawingxml/DrawingXml.h"

#include "platform/CodePages.h"
#include "platform/Errors.h"

#include <algorithm>

namespace vexlator::formats::drawingxml {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

bool HoldsControl(std::string_view text, std::string_view allowed) {
    return std::ranges::any_of(text, [allowed](char c) {
        return static_cast<unsigned char>(c) < ' ' && allowed.find(c) == std::string_view::npos;
    });
}

/// U+FFFE and U+FFFF, which XML excludes.
bool HoldsNoCharacter(std::string_view text) {
    return text.find("\xEF\xBF\xBE") != std::string_view::npos ||
           text.find("\xEF\xBF\xBF") != std::string_view::npos;
}

bool IsText(std::string_view text) {
    return platform::IsAscii(text) || (platform::IsUtf8(text) && !HoldsNoCharacter(text));
}

std::size_t DigitOf(char c) {
    if (c >= 'a' && c <= 'f') c = static_cast<char>(c - 0x20);
    return hexDigits.find(c);
}

}  // namespace

bool IsContent(std::string_view text) {
    return !HoldsControl(text, "\t\n\r") && IsText(text);
}

bool IsAttribute(std::string_view text) {
    return !HoldsControl(text, "") && IsText(text);
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        if (byte >= ' ' && byte < 0x7F && c != '%')
            escaped += c;
        else
            escaped.append("%").append(1, hexDigits[byte >> 4]).append(1, hexDigits[byte & 15]);
    }
    return escaped;
}

std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            plain += text[i];
            continue;
        }
        std::size_t high = i + 2 < text.size() ? DigitOf(text[i + 1]) : std::string_view::npos;
        std::size_t low = high != std::string_view::npos ? DigitOf(text[i + 2]) : std::string_view::npos;
        if (low == std::string_view::npos)
            throw platform::ReadError("", "", "an escaped text holds a % without two hexadecimal digits");
        plain += static_cast<char>(high << 4 | low);
        i += 2;
    }
    return plain;
}

}  // namespace vexlator::formats::drawingxml
