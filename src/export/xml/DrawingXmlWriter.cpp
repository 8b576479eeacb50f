// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/xml/DrawingXmlWriter.h"

#include "drawing/Vdf.h"
#include "formats/drawingxml/DrawingXml.h"
#include "formats/xml/XmlText.h"
#include "platform/Errors.h"
#include "util/Numbers.h"

#include <cmath>
#include <string>

namespace vexlator::exporter {

using drawing::EntityView;
namespace drawingxml = formats::drawingxml;

namespace {

/// A damaged drawing can hold one content in many, level by level. What is deeper or more is written as
/// bytes.
constexpr int deepestBlock = 16;
constexpr std::uint64_t mostUnpacked = std::uint64_t{1} << 30;

std::string HexOf(std::uint64_t number) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    do text.insert(text.begin(), digits[number & 15]);
    while ((number >>= 4) != 0);
    return text;
}

/// False if the content of a block cannot be read.
bool Unpack(const drawing::Block& block, drawing::Drawing& content) try {
    drawing::ReadVdf(block, content);
    return true;
} catch (const platform::ReadError&) {
    return false;
}

}  // namespace

void DrawingXmlWriter::Begin(const drawing::Drawing& drawing) {
    file_.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<drawing xmlns=\"");
    file_.Write(drawingxml::nameSpace);
    file_.Write("\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\n    xsi:schemaLocation=\"");
    file_.Write(drawingxml::nameSpace);
    file_.Write(" ");
    file_.Write(drawingxml::schemaFile);
    file_.Write("\" nextHandle=\"" + HexOf(drawing.store().NextHandle()) + "\">\n");
    Description(drawing, 0);
}

void DrawingXmlWriter::End() {
    file_.Write("</drawing>\n");
}

void DrawingXmlWriter::Description(const drawing::Drawing& drawing, int depth) {
    for (const auto& [name, value] : drawing.properties())
        NamedElement("property", name, value, drawing::textTypeCode);
    for (const drawing::Layer& layer : drawing.layers()) AddLayer(layer);
    AddActive(drawing);
    for (const drawing::Block& block : drawing.blocks()) AddBlock(block, depth + 1);
}

void DrawingXmlWriter::AddLayer(const drawing::Layer& layer) {
    bool escaped = !drawingxml::IsAttribute(layer.name);
    file_.Write("<layer");
    TextAttribute("name", layer.name, escaped);
    if (layer.frozen) file_.Write(" frozen=\"true\"");
    WholeAttribute("colour", layer.colour, drawing::defaultColour);
    file_.Write(escaped ? " escaped=\"true\"/>\n" : "/>\n");
}

void DrawingXmlWriter::AddActive(const drawing::Drawing& drawing) {
    const drawing::Style& style = drawing.activeStyle();
    if (drawing.activeLayerName() == "0" && style == drawing::Style()) return;
    bool escaped =
        !drawingxml::IsAttribute(drawing.activeLayerName()) || !drawingxml::IsAttribute(style.lineType);
    file_.Write("<active");
    TextAttribute("layer", drawing.activeLayerName(), escaped);
    AddStyle(style, escaped);
    file_.Write(escaped ? " escaped=\"true\"/>\n" : "/>\n");
}

void DrawingXmlWriter::AddBlock(const drawing::Block& block, int depth) {
    bool escaped = !drawingxml::IsAttribute(block.name);
    file_.Write("<block");
    TextAttribute("name", block.name, escaped);
    file_.Write(escaped ? " escaped=\"true\">" : ">");
    unpacked_ += block.content.size();
    drawing::Drawing content;
    if (!block.content.empty() && depth <= deepestBlock && unpacked_ <= mostUnpacked &&
        Unpack(block, content)) {
        file_.Write("<drawing nextHandle=\"" + HexOf(content.store().NextHandle()) + "\">\n");
        Description(content, depth);
        AddEntities(content);
        file_.Write("</drawing>");
    } else if (!block.content.empty()) {
        file_.Write("<bytes>");
        for (char c : block.content) {
            auto byte = static_cast<unsigned char>(c);
            file_.Write((byte < 16 ? "0" : "") + HexOf(byte));
        }
        file_.Write("</bytes>");
    }
    file_.Write("</block>\n");
}

void DrawingXmlWriter::AddEntities(const drawing::Drawing& chunk) {
    chunk.forEach([&](const EntityView& entity) { AddEntity(entity); });
}

void DrawingXmlWriter::AddEntity(const EntityView& entity) {
    bool escaped = !drawingxml::IsAttribute(entity.kind()) || !drawingxml::IsAttribute(entity.layerName()) ||
                   !drawingxml::IsAttribute(entity.style().lineType) ||
                   !drawingxml::IsAttribute(entity.shape().name);
    file_.Write("<entity");
    TextAttribute("kind", entity.kind(), escaped);
    file_.Write(" handle=\"");
    file_.Write(entity.handle());
    file_.Write("\"");
    TextAttribute("layer", entity.layerName(), escaped);
    if (entity.isClosed()) file_.Write(" closed=\"true\"");
    if (entity.isFilled()) file_.Write(" filled=\"true\"");
    AddStyle(entity.style(), escaped);
    AddShape(entity, escaped);
    file_.Write(escaped ? " escaped=\"true\">\n" : ">\n");
    AddVertices(entity);
    if (!entity.text().empty()) TextElement("text", entity.text());
    if (!entity.label().empty()) TextElement("label", entity.label());
    if (!entity.hyperlink().empty()) TextElement("hyperlink", entity.hyperlink());
    AddValues(entity);
    file_.Write("</entity>\n");
}

void DrawingXmlWriter::AddStyle(const drawing::Style& style, bool escaped) {
    WholeAttribute("colour", style.colour, drawing::defaultColour);
    WholeAttribute("fillColour", style.fillColour, drawing::defaultColour);
    WholeAttribute("outlineColour", style.outlineColour, drawing::defaultColour);
    WholeAttribute("lineWeight", style.lineWeight, 0);
    if (!style.lineType.empty()) TextAttribute("lineType", style.lineType, escaped);
}

void DrawingXmlWriter::AddShape(const EntityView& entity, bool escaped) {
    static const drawing::Shape plain;
    const drawing::Shape& shape = entity.shape();
    bool nameIsKind = entity.kindCode() == drawing::Kind::Other;
    if (!nameIsKind && !shape.name.empty()) TextAttribute("name", shape.name, escaped);
    NumberAttribute("scaleX", shape.scaleX, plain.scaleX);
    NumberAttribute("scaleY", shape.scaleY, plain.scaleY);
    NumberAttribute("rotation", shape.rotation, plain.rotation);
    NumberAttribute("size", shape.size, plain.size);
    NumberAttribute("startAngle", shape.startAngle, plain.startAngle);
    NumberAttribute("endAngle", shape.endAngle, plain.endAngle);
    WholeAttribute("alignment", shape.alignment, plain.alignment);
}

void DrawingXmlWriter::AddVertices(const EntityView& entity) {
    std::span<const util::PlanePoint> plan = entity.planVertices();
    std::span<const double> heights = entity.heights();
    if (plan.empty()) return;
    file_.Write(heights.empty() ? " <vertices>" : " <vertices dimension=\"3\">");
    for (std::size_t i = 0; i < plan.size(); ++i) {
        if (i > 0) file_.Write(" ");
        Number(plan[i].x);
        file_.Write(" ");
        Number(plan[i].y);
        if (heights.empty()) continue;
        file_.Write(" ");
        Number(heights[i]);
    }
    file_.Write("</vertices>\n");
}

void DrawingXmlWriter::AddValues(const EntityView& entity) {
    drawing::XPropertiesView properties = entity.xproperties();
    drawing::ValueCursor values = properties.values();
    for (std::size_t i = 0; !values.AtEnd(); ++i)
        NamedElement("value", properties.name(i), values.Next(), properties.typeCode(i));
}

void DrawingXmlWriter::TextElement(std::string_view element, std::string_view text) {
    bool escaped = !drawingxml::IsContent(text);
    file_.Write(" <");
    file_.Write(element);
    file_.Write(escaped ? " escaped=\"true\">" : ">");
    Content(text, escaped);
    file_.Write("</");
    file_.Write(element);
    file_.Write(">\n");
}

void DrawingXmlWriter::NamedElement(std::string_view element, std::string_view name, std::string_view text,
                                    std::int32_t typeCode) {
    bool escaped = !drawingxml::IsAttribute(name) || !drawingxml::IsContent(text);
    file_.Write("<");
    file_.Write(element);
    TextAttribute("name", name, escaped);
    WholeAttribute("type", typeCode, drawing::textTypeCode);
    file_.Write(escaped ? " escaped=\"true\">" : ">");
    Content(text, escaped);
    file_.Write("</");
    file_.Write(element);
    file_.Write(">\n");
}

void DrawingXmlWriter::Content(std::string_view text, bool escaped) {
    if (escaped)
        formats::WriteXmlText(file_, drawingxml::Escaped(text));
    else
        formats::WriteXmlText(file_, text);
}

void DrawingXmlWriter::TextAttribute(std::string_view name, std::string_view text, bool escaped) {
    file_.Write(" ");
    file_.Write(name);
    file_.Write("=\"");
    Content(text, escaped);
    file_.Write("\"");
}

template <typename Whole>
void DrawingXmlWriter::WholeAttribute(std::string_view name, Whole value, Whole unwritten) {
    if (value == unwritten) return;
    file_.Write(" ");
    file_.Write(name);
    file_.Write("=\"" + std::to_string(value) + "\"");
}

void DrawingXmlWriter::NumberAttribute(std::string_view name, double value, double unwritten) {
    if (value == unwritten) return;
    file_.Write(" ");
    file_.Write(name);
    file_.Write("=\"");
    Number(value);
    file_.Write("\"");
}

void DrawingXmlWriter::Number(double value) {
    if (!std::isfinite(value)) return file_.Write(std::isnan(value) ? "NaN" : value > 0 ? "INF" : "-INF");
    char* begin = file_.Reserve(util::longestShortest);
    file_.Advance(static_cast<std::size_t>(util::WriteShortest(begin, value) - begin));
}

}  // namespace vexlator::exporter
