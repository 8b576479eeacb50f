// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/xml/ByteBlocks.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace vexlator::formats {

struct XmlAttribute {
    std::string_view name, value;
};
/// Attributes of a start tag, including declarations of namespaces.
using XmlAttributes = std::span<const XmlAttribute>;

/// The calls of ParseXml. Texts are UTF-8. Names include their prefixes. The text of one element can come in
/// pieces.
class XmlHandler {
public:
    virtual ~XmlHandler() = default;
    virtual void StartElement(std::string_view name, XmlAttributes attributes) = 0;
    virtual void EndElement() = 0;
    virtual void Text(std::string_view text) = 0;

    std::uint64_t line = 0;  ///< current line of the parser, set before each call
};

/// Reads a document in bounded memory and calls the handler for its contents. The encoding is any that iconv
/// knows. Refuses
/// - entities, values of attributes and external document types declared by the document,
/// - elements nested more than 256 deep,
/// - tags of more than 64 KB, and more than 1 MB without an element or text, such as long comments,
/// - different names that fill hundreds of kilobytes.
///
/// @throws platform::ReadError with line or byte, without a file name; and exceptions of the handler, where a
/// ReadError without a place gets the current line
void ParseXml(ByteBlocks& blocks, XmlHandler& handler);

}  // namespace vexlator::formats
