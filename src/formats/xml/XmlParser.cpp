// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xml/XmlParser.h"

#include "platform/CodePages.h"
#include "platform/Errors.h"

#include <exception>
#include <libxml/SAX2.h>
#include <libxml/dict.h>
#include <libxml/parser.h>
#include <new>
#include <string>
#include <vector>

namespace vexlator::formats {

namespace {

using platform::ReadError;

constexpr std::size_t deepest = 256;
/// Limits attributes, because the parser compares every attribute of a tag with all others.
constexpr std::size_t longestTag = std::size_t{64} << 10;
constexpr std::size_t longestGap = std::size_t{1} << 20;
/// Limits names, because the parser keeps all names in a table, which becomes slow and takes memory in ever
/// larger pieces.
constexpr std::size_t mostNameMemory = std::size_t{1} << 20;
constexpr std::size_t longestReason = 200;

std::string_view View(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

/// The message's first line. The rest can repeat much of the file.
std::string ReasonOf(std::string_view message) {
    return std::string(platform::CutUtf8(message.substr(0, message.find('\n')), longestReason));
}

/// One run of the parser. It is C code, so exceptions must not pass through it. The first exception is kept,
/// the handler is not called any more, and the file seems to end.
class XmlParse {
public:
    XmlParse(ByteBlocks& blocks, XmlHandler& handler)
        : blocks_(blocks), handler_(handler), context_(xmlNewParserCtxt()) {
        if (!context_) throw std::bad_alloc();
    }
    ~XmlParse() { xmlFreeParserCtxt(context_); }
    XmlParse(const XmlParse&) = delete;
    XmlParse& operator=(const XmlParse&) = delete;

    void Run();

private:
    struct Callbacks;

    std::size_t Read(char* buffer, std::size_t size);
    XmlAttributes AttributesOf(const xmlChar** namesAndValues);
    bool InTag() const;
    bool AtEnd();
    std::uint64_t Line() const { return static_cast<std::uint64_t>(xmlSAX2GetLineNumber(context_)); }
    std::string Place() const { return ReadError::AtLine(Line()); }

    ByteBlocks& blocks_;
    XmlHandler& handler_;
    xmlParserCtxtPtr context_;
    std::exception_ptr thrown_;
    std::string_view block_;  ///< rest of the current block
    std::size_t gap_ = 0;     ///< number of bytes since the last element or text
    std::size_t depth_ = 0;
    bool complete_ = false;  ///< the root element has ended
    std::vector<XmlAttribute> attributes_;
};

struct XmlParse::Callbacks {
    template <typename Call>
    static void Guard(void* user, Call call) {
        auto& self = *static_cast<XmlParse*>(user);
        if (self.thrown_) return;
        try {
            try {
                call(self);
            } catch (const ReadError& error) {
                if (!error.Place().empty()) throw;
                throw ReadError("", self.Place(), error.Reason());
            }
        } catch (...) {
            self.thrown_ = std::current_exception();
        }
    }
    static int Read(void* user, char* buffer, int size) {
        std::size_t read = 0;
        Guard(user, [&](XmlParse& self) { read = self.Read(buffer, static_cast<std::size_t>(size)); });
        return static_cast<int>(read);
    }
    static void Start(void* user, const xmlChar* name, const xmlChar** attributes) {
        Guard(user, [&](XmlParse& self) {
            self.gap_ = 0;
            if (++self.depth_ > deepest) throw ReadError("", "", "elements are nested more than 256 deep");
            self.handler_.line = self.Line();
            self.handler_.StartElement(View(name), self.AttributesOf(attributes));
        });
    }
    static void End(void* user, const xmlChar*) {
        Guard(user, [&](XmlParse& self) {
            self.gap_ = 0;
            self.complete_ = --self.depth_ == 0;
            self.handler_.line = self.Line();
            self.handler_.EndElement();
        });
    }
    static void Text(void* user, const xmlChar* text, int size) {
        Guard(user, [&](XmlParse& self) {
            self.gap_ = 0;
            self.handler_.line = self.Line();
            self.handler_.Text({reinterpret_cast<const char*>(text), static_cast<std::size_t>(size)});
        });
    }
    static void Doctype(void* user, const xmlChar*, const xmlChar* identifier, const xmlChar* system) {
        Guard(user, [&](XmlParse&) {
            if (system || identifier) throw ReadError("", "", "refers to an external document type");
        });
    }
    static void Entity(void* user, const xmlChar*, int, const xmlChar*, const xmlChar*, xmlChar*) {
        Guard(user, [&](XmlParse&) { throw ReadError("", "", "declares an entity, which is refused"); });
    }
    static void UnparsedEntity(void* user, const xmlChar* name, const xmlChar* identifier,
                               const xmlChar* system, const xmlChar*) {
        Entity(user, name, 0, identifier, system, nullptr);
    }
    static void Attribute(void* user, const xmlChar*, const xmlChar*, int, int, const xmlChar* value,
                          xmlEnumerationPtr values) {
        xmlFreeEnumeration(values);
        Guard(user, [&](XmlParse&) {
            if (value) throw ReadError("", "", "declares a value for attributes, which is refused");
        });
    }
    /// Later versions of the library pass a constant error.
    template <typename Error>
    static void Report(void* user, Error* error) {
        Guard(user, [&](XmlParse&) {
            if (error->level == XML_ERR_FATAL) throw ReadError("", "", ReasonOf(error->message));
        });
    }
};

/// Uses the parser's first interface: names are as in the file, so undeclared prefixes are not an error.
void XmlParse::Run() {
    xmlSAXHandler calls{};
    calls.startElement = Callbacks::Start;
    calls.endElement = Callbacks::End;
    calls.characters = calls.ignorableWhitespace = calls.cdataBlock = Callbacks::Text;
    calls.internalSubset = Callbacks::Doctype;
    calls.entityDecl = Callbacks::Entity;
    calls.unparsedEntityDecl = Callbacks::UnparsedEntity;
    calls.attributeDecl = Callbacks::Attribute;
    *context_->sax = calls;
    context_->userData = this;
    // The only entities left to replace are those of XML itself, such as "&amp;".
    constexpr int options = XML_PARSE_NOENT | XML_PARSE_NONET;
    // For this thread. No other function receives errors in the conversion of bytes.
    xmlSetStructuredErrorFunc(this, Callbacks::Report);
    xmlFreeDoc(xmlCtxtReadIO(context_, Callbacks::Read, nullptr, this, nullptr, nullptr, options));
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    if (thrown_) std::rethrow_exception(thrown_);
    if (!complete_) throw ReadError("", Place(), "is not a complete XML document");
    if (!AtEnd()) throw ReadError("", Place(), "continues after the end of the document");
}

std::size_t XmlParse::Read(char* buffer, std::size_t size) {
    if (InTag() && gap_ > longestTag) throw ReadError("", "", "a tag or comments of more than 64 KB");
    if (gap_ > longestGap) throw ReadError("", "", "a comment, CDATA section or gap of more than 1 MB");
    if (xmlDictGetUsage(context_->dict) > mostNameMemory)
        throw ReadError("", "", "too many different names of elements and attributes");
    if (block_.empty()) block_ = blocks_.Next();
    size = block_.copy(buffer, size);
    block_.remove_prefix(size);
    gap_ += size;
    return size;
}

XmlAttributes XmlParse::AttributesOf(const xmlChar** namesAndValues) {
    attributes_.clear();
    for (; namesAndValues && *namesAndValues; namesAndValues += 2)
        attributes_.push_back({View(namesAndValues[0]), View(namesAndValues[1])});
    return attributes_;
}

/// Or comments that follow each other without a blank. Any text would have caused a call.
bool XmlParse::InTag() const {
    return context_->instate == XML_PARSER_CONTENT || context_->instate == XML_PARSER_ATTRIBUTE_VALUE;
}

/// The parser takes a NUL character as the end.
bool XmlParse::AtEnd() {
    return context_->input->cur == context_->input->end && block_.empty() && blocks_.Next().empty();
}

}  // namespace

void ParseXml(ByteBlocks& blocks, XmlHandler& handler) {
    XmlParse(blocks, handler).Run();
}

}  // namespace vexlator::formats
