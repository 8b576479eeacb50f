// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/ByteBlocks.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace vexlator::formats {

struct XmlAttribute {
    std::string_view name, value;
};
/// Of a start tag; declarations of namespaces are among them.
using XmlAttributes = std::span<const XmlAttribute>;

/// What ParseXml calls. Texts are UTF-8, names carry their prefixes; the text of one element may come in
/// pieces.
class XmlHandler {
public:
    virtual ~XmlHandler() = default;
    virtual void StartElement(std::string_view name, XmlAttributes attributes) = 0;
    virtual void EndElement() = 0;
    virtual void Text(std::string_view text) = 0;

    std::uint64_t line = 0;  ///< that the parser has reached, set before each call
};

/// Reads a document in bounded memory and calls the handler for what it holds. The encoding is any that iconv
/// knows. Refused are
/// - entities, values of attributes and external document types that the document declares,
/// - elements nested more than 256 deep,
/// - tags of more than 64 KB, and more than 1 MB without an element or text, as comments of that length are,
/// - different names that fill hundreds of kilobytes.
/// @throws platform::ReadError with line or byte, without a file name; what the handler throws, where a
/// ReadError without a place gets the line that the parser has reached
void ParseXml(ByteBlocks& blocks, XmlHandler& handler);

}  // namespace vexlator::formats
