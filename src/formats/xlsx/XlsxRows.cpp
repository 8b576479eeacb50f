// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xlsx/XlsxRows.h"

#include "platform/CodePages.h"

#include <algorithm>

namespace vexlator::formats {

namespace {

constexpr std::size_t longestText = 32767;  ///< UTF-16 units

/// A literal "_x0041_" would be read as the character of that number.
bool LooksEscaped(std::string_view text, std::size_t at) {
    return text.substr(at, 2) == "_x" && text.size() > at + 6 && text[at + 6] == '_' &&
           std::ranges::all_of(text.substr(at + 2, 4), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
           });
}

std::string WithoutEscapes(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (LooksEscaped(text, i)) plain += "_x005F";
        plain += text[i];
    }
    return plain;
}

}  // namespace

/// Characters beyond U+FFFF count twice.
std::string_view FirstUtf16Units(std::string_view utf8, std::size_t most) {
    std::size_t units = 0, end = 0;
    while (end < utf8.size()) {
        auto byte = static_cast<unsigned char>(utf8[end]);
        units += byte >= 0xF0 ? 2 : 1;
        if (units > most) break;
        ++end;
        while (end < utf8.size() && platform::ContinuesCharacter(utf8[end])) ++end;
    }
    return utf8.substr(0, end);
}

const std::string& XlsxRows::CellText(std::string_view text) {
    prepared_ = platform::IsAscii(text) ? std::string(text) : platform::AsUtf8(text);
    std::ranges::replace(prepared_, '\0', '?');
    if (prepared_.find("_x") != std::string::npos) prepared_ = WithoutEscapes(prepared_);
    if (prepared_.size() > longestText) {
        std::size_t kept = FirstUtf16Units(prepared_, longestText).size();
        if (kept < prepared_.size()) ++cut_;
        prepared_.resize(kept);
    }
    return prepared_;
}

}  // namespace vexlator::formats
