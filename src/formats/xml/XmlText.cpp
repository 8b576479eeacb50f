// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xml/XmlText.h"

#include "platform/CodePages.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <string>

namespace vexlator::formats {

namespace {

constexpr std::size_t longestReference = 6;
/// The escaped form of one piece fits the file's buffer, at any growth.
constexpr std::size_t longestPiece = platform::OutputFile::BufferSize / 8;

/// The replacement for each byte; empty: the byte itself.
constexpr std::array<std::string_view, 256> replacements = [] {
    std::array<std::string_view, 256> table;
    for (std::size_t control = 0; control < 0x20; ++control) table[control] = "?";
    table['\t'] = table['\n'] = "";
    table['\r'] = "&#13;";
    table['&'] = "&amp;";
    table['<'] = "&lt;";
    table['>'] = "&gt;";
    table['"'] = "&quot;";
    return table;
}();

/// Bytes without a replacement. Every byte is looked up here, so the table is small.
constexpr std::array<bool, 256> stays = [] {
    std::array<bool, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) table[byte] = replacements[byte].empty();
    return table;
}();

char* Escape(char* out, std::string_view text, std::uint64_t& replaced) {
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        if (stays[byte]) {
            *out++ = c;
            continue;
        }
        std::string_view replacement = replacements[byte];
        std::memcpy(out, replacement.data(), replacement.size());
        out += replacement.size();
        if (replacement == "?") ++replaced;
    }
    return out;
}

/// The text in UTF-8, without the two characters beyond ASCII that XML cannot hold.
std::string CleanUtf8(std::string_view text, std::uint64_t& replaced) {
    std::string clean = platform::IsUtf8(text) ? std::string(text) : platform::Utf8FromWindows1252(text);
    for (std::size_t at = 0; (at = clean.find("\xEF\xBF", at)) != std::string::npos; ++at) {
        if (clean[at + 2] != '\xBE' && clean[at + 2] != '\xBF') continue;
        clean.replace(at, 3, "?");
        ++replaced;
    }
    return clean;
}

}  // namespace

std::uint64_t WriteXmlText(platform::OutputFile& file, std::string_view text) {
    std::uint64_t replaced = 0;
    std::string clean;
    if (!platform::IsAscii(text)) text = clean = CleanUtf8(text, replaced);
    while (!text.empty()) {
        std::string_view piece = text.substr(0, longestPiece);
        char* begin = file.Reserve(piece.size() * longestReference);
        file.Advance(static_cast<std::size_t>(Escape(begin, piece, replaced) - begin));
        text.remove_prefix(piece.size());
    }
    return replaced;
}

}  // namespace vexlator::formats
