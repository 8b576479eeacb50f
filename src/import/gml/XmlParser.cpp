// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/gml/XmlParser.h"

#include "platform/CodePages.h"
#include "platform/Errors.h"

#include <expat.h>
#include <new>
#include <utility>

namespace vexlator::importer {

namespace {

using platform::ReadError;

constexpr std::size_t deepest = 256;
constexpr long long longestToken = 1 << 20;

/// The code point of one UTF-8 character of at most three bytes, -1 for anything else.
int CodePointOf(std::string_view text) {
    auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (text.size() == 1 && byte(0) < 0x80) return byte(0);
    if (text.size() == 2) return (byte(0) & 0x1F) << 6 | (byte(1) & 0x3F);
    if (text.size() == 3) return (byte(0) & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
    return -1;
}

/// Fills the table of an encoding with one byte a character. Encodings that need several have lead bytes that
/// mean nothing alone, so many bytes misfit.
int DescribeEncoding(void*, const XML_Char* name, XML_Encoding* encoding) {
    constexpr std::uint64_t mostUnused = 64;
    platform::Decoder decoder(name);
    if (!decoder.IsKnown()) return XML_STATUS_ERROR;
    for (int i = 0; i < 256; ++i) {
        char byte = static_cast<char>(i);
        encoding->map[i] = i < 0x80 ? i : CodePointOf(decoder.Decode({&byte, 1}));
    }
    encoding->data = nullptr;
    encoding->convert = nullptr;
    encoding->release = nullptr;
    return decoder.Misfits() <= mostUnused ? XML_STATUS_OK : XML_STATUS_ERROR;
}

}  // namespace

/// The parser is C code, which exceptions must not cross.
struct XmlParser::Callbacks {
    template <typename Call>
    static void Guard(void* user, Call call) {
        auto& self = *static_cast<XmlParser*>(user);
        if (self.thrown_) return;
        try {
            call(self);
        } catch (...) {
            self.thrown_ = std::current_exception();
            XML_StopParser(self.parser_, XML_FALSE);
        }
    }
    static void Start(void* user, const XML_Char* name, const XML_Char** attributes) {
        Guard(user, [&](XmlParser& self) {
            if (++self.depth_ > deepest) throw ReadError("", "", "elements are nested more than 256 deep");
            self.handler_.StartElement(name, attributes);
        });
    }
    static void End(void* user, const XML_Char*) {
        Guard(user, [&](XmlParser& self) {
            --self.depth_;
            self.handler_.EndElement();
        });
    }
    static void Text(void* user, const XML_Char* text, int size) {
        Guard(user, [&](XmlParser& self) { self.handler_.Text({text, static_cast<std::size_t>(size)}); });
    }
    static void Doctype(void* user, const XML_Char*, const XML_Char* system, const XML_Char* identifier,
                        int) {
        Guard(user, [&](XmlParser&) {
            if (system || identifier) throw ReadError("", "", "refers to an external document type");
        });
    }
    static void Entity(void* user, const XML_Char*, int, const XML_Char*, int, const XML_Char*,
                       const XML_Char*, const XML_Char*, const XML_Char*) {
        Guard(user, [&](XmlParser&) { throw ReadError("", "", "declares an entity, which is refused"); });
    }
};

XmlParser::XmlParser(std::unique_ptr<ByteBlocks> blocks, const std::string& encoding, XmlHandler& handler)
    : blocks_(std::move(blocks)),
      handler_(handler),
      parser_(XML_ParserCreate(encoding.empty() ? nullptr : encoding.c_str())) {
    if (!parser_) throw std::bad_alloc();
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(parser_, Callbacks::Start, Callbacks::End);
    XML_SetStartDoctypeDeclHandler(parser_, Callbacks::Doctype);
    XML_SetEntityDeclHandler(parser_, Callbacks::Entity);
    XML_SetUnknownEncodingHandler(parser_, DescribeEncoding, nullptr);
}

XmlParser::~XmlParser() {
    XML_ParserFree(parser_);
}

void XmlParser::Pause() {
    paused_ = true;
    XML_StopParser(parser_, XML_TRUE);
}

void XmlParser::WantText(bool wanted) {
    if (std::exchange(wantsText_, wanted) == wanted) return;
    XML_SetCharacterDataHandler(parser_, wanted ? Callbacks::Text : nullptr);
}

bool XmlParser::ParseOn() {
    if (paused_) {
        paused_ = false;
        if (Handle(XML_ResumeParser(parser_))) return true;
    }
    while (!lastFed_) {
        std::string_view block = blocks_->Next();
        lastFed_ = block.empty();
        fed_ += static_cast<long long>(block.size());
        if (Handle(XML_Parse(parser_, block.data(), static_cast<int>(block.size()), lastFed_))) return true;
        CheckTokenSize();
    }
    return false;
}

/// True when the handler has paused.
bool XmlParser::Handle(int status) {
    if (thrown_) {
        try {
            std::rethrow_exception(thrown_);
        } catch (const ReadError& error) {
            if (!error.Place().empty()) throw;
            Fail(error.Reason());
        }
    }
    if (status == XML_STATUS_ERROR) Fail(XML_ErrorString(XML_GetErrorCode(parser_)));
    return status == XML_STATUS_SUSPENDED;
}

/// A token that is not complete is kept, and read again with each block.
void XmlParser::CheckTokenSize() {
    long long complete = XML_GetCurrentByteIndex(parser_);
    if (complete >= 0 && fed_ - complete > longestToken) Fail("a tag or comment of more than 1 MB");
}

void XmlParser::Fail(const std::string& reason) const {
    throw ReadError("", ReadError::AtLine(XML_GetCurrentLineNumber(parser_)), reason);
}

}  // namespace vexlator::importer
