// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xml/XmlMemory.h"

#include "formats/xml/ByteBlocks.h"

#include <limits>
#include <span>

namespace vexlator::formats {

void ParseXmlText(std::string_view text, XmlHandler& handler) {
    auto blocks = BlocksOf(std::as_bytes(std::span(text)), std::numeric_limits<std::uint64_t>::max());
    ParseXml(*blocks, handler);
}

std::string XmlEscaped(std::string_view text) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string escaped;
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '>')
            escaped += "&gt;";
        else if (c == '"')
            escaped += "&quot;";
        else if (byte < ' ' && c != '\n' && c != '\t')
            escaped.append("_x00").append(1, digits[byte >> 4]).append(1, digits[byte & 15]).append("_");
        else
            escaped += c;
    }
    return escaped;
}

}  // namespace vexlator::formats
