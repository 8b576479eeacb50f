// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "import/gml/ByteBlocks.h"

#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

struct XML_ParserStruct;

namespace vexlator::importer {

/// Attributes of a start tag: names and values by turns, then a null pointer.
using XmlAttributes = const char**;

/// What an XML parser calls. Texts are UTF-8, names carry their prefixes; the text of one element may come in
/// pieces. A ReadError without a place gets the current line.
class XmlHandler {
public:
    virtual ~XmlHandler() = default;
    virtual void StartElement(std::string_view name, XmlAttributes attributes) = 0;
    virtual void EndElement() = 0;
    virtual void Text(std::string_view text) = 0;
};

/// Reads XML block by block in bounded memory. Entities, external document types, elements nested more than
/// 256 deep and tags or comments of more than 1 MB are refused. Encodings are those of XML and all that have
/// one byte a character.
class XmlParser {
public:
    /// `encoding` overrides the file's own, "" leaves it. The handler must outlive the parser.
    XmlParser(std::unique_ptr<ByteBlocks> blocks, const std::string& encoding, XmlHandler& handler);
    ~XmlParser();
    XmlParser(const XmlParser&) = delete;
    XmlParser& operator=(const XmlParser&) = delete;

    /// Calls the handler until it calls Pause(); false when the end of the file came first.
    /// @throws platform::ReadError with line, without a file name; what the handler throws
    bool ParseOn();
    void Pause();
    /// Whether the handler's Text() is called from now on; at first it is not.
    void WantText(bool wanted);
    std::size_t Consumed() const { return blocks_->Consumed(); }

private:
    struct Callbacks;

    bool Handle(int status);
    void CheckTokenSize();
    [[noreturn]] void Fail(const std::string& reason) const;

    std::unique_ptr<ByteBlocks> blocks_;
    XmlHandler& handler_;
    XML_ParserStruct* parser_;
    std::exception_ptr thrown_;
    std::size_t depth_ = 0;
    long long fed_ = 0;
    bool wantsText_ = false, paused_ = false, lastFed_ = false;
};

}  // namespace vexlator::importer
