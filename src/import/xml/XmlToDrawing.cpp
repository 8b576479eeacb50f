// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/xml/XmlToDrawing.h"

#include "drawing/Vdf.h"
#include "formats/drawingxml/DrawingXml.h"
#include "formats/xml/XmlParser.h"
#include "import/xml/XmlAttributeReader.h"
#include "platform/Errors.h"
#include "util/Text.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vexlator::importer {

using formats::XmlAttributes;
using platform::ReadError;

namespace {

constexpr std::size_t deepestBlock = 16;
constexpr std::size_t longestText = std::size_t{1} << 30;

std::string BytesOfHex(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEFabcdef";
    std::string bytes;
    int high = -1;
    for (char c : text) {
        if (util::lineBlanks.find(c) != std::string_view::npos) continue;
        std::size_t digit = digits.find(c);
        if (digit == std::string_view::npos)
            throw ReadError("", "", "bytes hold what is no hexadecimal digit");
        int value = static_cast<int>(digit < 16 ? digit : digit - 6);
        if (high >= 0) bytes += static_cast<char>(high << 4 | value);
        high = high >= 0 ? -1 : value;
    }
    if (high >= 0) throw ReadError("", "", "bytes end with half a byte");
    return bytes;
}

/// Follows a document's elements and hands their contents to builders: one for the drawing, one for each
/// block that is open.
class DocumentHandler : public formats::XmlHandler {
public:
    DocumentHandler(drawing::Drawing& drawing, DrawingBuilder::Into into,
                    const std::function<void()>& entityDone)
        : into_(into), entityDone_(entityDone), root_(drawing) {}

    void StartElement(std::string_view name, XmlAttributes attributes) override;
    void EndElement() override;
    void Text(std::string_view text) override;

private:
    enum class Element {
        Drawing,
        Property,
        Layer,
        Active,
        Block,
        Bytes,
        Entity,
        Vertices,
        String,
        Label,
        Hyperlink,
        Value
    };
    /// A drawing whose end has not come.
    struct Level {
        std::unique_ptr<drawing::Drawing> content;  ///< of a block; none for the outermost
        std::unique_ptr<DrawingBuilder> builder;
        std::string blockName, blockContent;  ///< of the block of this drawing that is open
    };

    Element ElementOf(std::string_view name) const;
    bool MayHold(Element inner) const;
    void Start(Element element, XmlAttributeReader& attributes);
    void StartDrawing(XmlAttributeReader& attributes);
    void EndDrawing();
    /// Elements with a text.
    void End(Element element);
    DrawingBuilder& Builder() { return *levels_.back().builder; }
    static bool HasText(Element element) {
        return element == Element::Property || element == Element::Bytes || element >= Element::Vertices;
    }

    DrawingBuilder::Into into_;
    const std::function<void()>& entityDone_;
    drawing::Drawing& root_;
    std::vector<Level> levels_;
    std::vector<Element> open_;
    // The open element with a text.
    std::string text_, name_;
    bool escaped_ = false;
    std::int32_t typeCode_ = 0;
    int dimension_ = 2;
};

DocumentHandler::Element DocumentHandler::ElementOf(std::string_view name) const {
    static constexpr std::pair<std::string_view, Element> elements[] = {
        {"value", Element::Value},     {"entity", Element::Entity},     {"vertices", Element::Vertices},
        {"text", Element::String},     {"label", Element::Label},       {"hyperlink", Element::Hyperlink},
        {"drawing", Element::Drawing}, {"property", Element::Property}, {"layer", Element::Layer},
        {"active", Element::Active},   {"block", Element::Block},       {"bytes", Element::Bytes}};
    const auto* found = std::ranges::find(elements, name, &std::pair<std::string_view, Element>::first);
    if (found != std::end(elements) && MayHold(found->second)) return found->second;
    if (open_.empty())
        throw ReadError("", "", "is no drawing in XML: its first element is " + std::string(name));
    throw ReadError("", "", "the element " + std::string(name.substr(0, 40)) + " is not known here");
}

bool DocumentHandler::MayHold(Element inner) const {
    if (open_.empty()) return inner == Element::Drawing;
    switch (open_.back()) {
        case Element::Drawing:
            return inner == Element::Property || inner == Element::Layer || inner == Element::Active ||
                   inner == Element::Block || inner == Element::Entity;
        case Element::Block:
            return inner == Element::Drawing || inner == Element::Bytes;
        case Element::Entity:
            return inner >= Element::Vertices;
        default:
            return false;
    }
}

void DocumentHandler::StartElement(std::string_view name, XmlAttributes attributes) {
    Element element = ElementOf(name.substr(name.find(':') + 1));
    if (open_.empty() && std::ranges::none_of(attributes, [](const formats::XmlAttribute& attribute) {
            return attribute.name.starts_with("xmlns") && attribute.value == formats::drawingxml::nameSpace;
        }))
        throw ReadError(
            "", "",
            "is no drawing in XML: it lacks the namespace " + std::string(formats::drawingxml::nameSpace));
    XmlAttributeReader reader(attributes);
    Start(element, reader);
    reader.ExpectEnd();
    open_.push_back(element);
}

void DocumentHandler::Start(Element element, XmlAttributeReader& attributes) {
    text_.clear();
    escaped_ = attributes.IsEscaped();
    switch (element) {
        case Element::Drawing:
            return StartDrawing(attributes);
        case Element::Layer:
            return Builder().AddLayer(attributes);
        case Element::Active:
            return Builder().SetActive(attributes);
        case Element::Block:
            levels_.back().blockName = attributes.Required("name");
            levels_.back().blockContent.clear();
            return;
        case Element::Entity:
            return Builder().BeginEntity(attributes);
        case Element::Vertices:
            dimension_ = attributes.Whole("dimension", 2);
            if (dimension_ != 2 && dimension_ != 3)
                throw ReadError("", "", "the dimension is neither 2 nor 3");
            return;
        case Element::Property:
        case Element::Value:
            name_ = attributes.Required("name");
            typeCode_ = attributes.Whole("type", drawing::textTypeCode);
            return;
        default:
            return;
    }
}

void DocumentHandler::StartDrawing(XmlAttributeReader& attributes) {
    if (levels_.size() > deepestBlock) throw ReadError("", "", "blocks are nested more than 16 deep");
    Level level;
    bool outermost = levels_.empty();
    if (!outermost) level.content = std::make_unique<drawing::Drawing>();
    level.builder = std::make_unique<DrawingBuilder>(outermost ? root_ : *level.content,
                                                     outermost ? into_ : DrawingBuilder::Into::Empty);
    level.builder->SetNextHandle(attributes.Handle("nextHandle"));
    levels_.push_back(std::move(level));
}

void DocumentHandler::EndDrawing() {
    Builder().Finish();
    Level level = std::move(levels_.back());
    levels_.pop_back();
    if (level.content) levels_.back().blockContent = drawing::VdfBytes(*level.content);
}

void DocumentHandler::EndElement() {
    Element element = open_.back();
    open_.pop_back();
    if (element == Element::Drawing) return EndDrawing();
    if (element == Element::Block)
        return Builder().AddBlock(levels_.back().blockName, std::move(levels_.back().blockContent));
    if (element == Element::Entity) {
        Builder().EndEntity();
        if (levels_.size() == 1) entityDone_();
        return;
    }
    if (HasText(element)) End(element);
}

void DocumentHandler::End(Element element) {
    if (escaped_) text_ = formats::drawingxml::Unescaped(text_);
    switch (element) {
        case Element::Property:
            return Builder().AddProperty(name_, text_);
        case Element::Bytes:
            levels_.back().blockContent = BytesOfHex(text_);
            return;
        case Element::Vertices:
            return Builder().SetVertices(text_, dimension_);
        case Element::String:
            return Builder().SetText(text_);
        case Element::Label:
            return Builder().SetLabel(text_);
        case Element::Hyperlink:
            return Builder().SetHyperlink(text_);
        default:
            return Builder().AddValue(name_, typeCode_, text_);
    }
}

void DocumentHandler::Text(std::string_view text) {
    if (!open_.empty() && HasText(open_.back())) {
        if (text_.size() + text.size() > longestText) throw ReadError("", "", "a text of more than 1 GB");
        text_ += text;
    } else if (!util::Trim(text, util::lineBlanks).empty()) {
        throw ReadError("", "", "text between elements");
    }
}

}  // namespace

void XmlToDrawing(formats::ByteBlocks& blocks, drawing::Drawing& drawing, DrawingBuilder::Into into,
                  const std::function<void()>& entityDone) {
    DocumentHandler handler(drawing, into, entityDone);
    formats::ParseXml(blocks, handler);
}

}  // namespace vexlator::importer
