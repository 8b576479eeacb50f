// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfjson/EntityReader.h"

#include "vdfjson/Coordinates.h"

namespace vexlator::vdfjson {

using drawing::Entity;
using drawing::Kind;

namespace {

enum VdfMember : std::size_t {
    KindName,
    LayerName,
    Colour,
    LineType,
    LineWeight,
    Label,
    Hyperlink,
    Closed,
    Filled,
    FillColour,
    OutlineColour,
    Vertices,
    Position,
    Block,
    Scale,
    Rotation,
    Radius,
    StartAngle,
    EndAngle,
    Text,
    Height,
    TextStyle,
    Alignment,
    XProperties,
    VdfMemberCount
};

constexpr std::array<std::string_view, VdfMemberCount> vdfMembers = {
    "kind",   "layer",      "colour",        "lineType", "lineWeight", "label", "hyperlink", "closed",
    "filled", "fillColour", "outlineColour", "vertices", "position",   "block", "scale",     "rotation",
    "radius", "startAngle", "endAngle",      "text",     "height",     "style", "alignment", "xproperties"};
static_assert(VdfMemberCount <= Members::Most);

drawing::Style StyleOf(const Members& vdf) {
    drawing::Style style;
    style.colour = vdf.WholeNumber(Colour, drawing::defaultColour);
    style.fillColour = vdf.WholeNumber(FillColour, drawing::defaultColour);
    style.outlineColour = vdf.WholeNumber(OutlineColour, drawing::defaultColour);
    style.lineWeight = vdf.WholeNumber<std::int32_t>(LineWeight);
    style.lineType = vdf.Text(LineType);
    return style;
}

/// Only members that the kind has. Others are ignored.
drawing::Shape ShapeOf(const Members& vdf, Kind kind, std::string_view kindName) {
    drawing::Shape shape;
    switch (kind) {
        case Kind::Insert:
            shape.name = vdf.Text(Block);
            if (vdf.Has(Scale)) {
                drawing::Point scale = vdf.Get(Scale, PointOf);
                shape.scaleX = scale.x;
                shape.scaleY = scale.y;
            }
            shape.rotation = vdf.Number(Rotation);
            break;
        case Kind::Circle:
            shape.size = vdf.Number(Radius);
            break;
        case Kind::Arc:
            shape.size = vdf.Number(Radius);
            shape.startAngle = vdf.Number(StartAngle);
            shape.endAngle = vdf.Number(EndAngle);
            break;
        case Kind::Text:
            shape.rotation = vdf.Number(Rotation);
            shape.size = vdf.Number(Height);
            shape.name = vdf.Text(TextStyle);
            shape.alignment = vdf.WholeNumber<std::int32_t>(Alignment);
            break;
        case Kind::Other:
            shape.name = kindName;
            break;
        case Kind::Point:
        case Kind::Polyline:
        case Kind::Line:
            break;
    }
    return shape;
}

struct XProperty {
    std::string_view name, value;
    std::int32_t typeCode = drawing::textTypeCode;
};

XProperty XPropertyOf(element value) {
    std::array<element, 3> parts;
    std::size_t count = 0;
    for (element part : ArrayOf(value)) {
        if (count == parts.size()) throw BadValue("has more than name, value and type code");
        parts[count++] = part;
    }
    if (count < 2) throw BadValue("is not [name, value]");
    XProperty property{TextOf(parts[0]), TextOf(parts[1])};
    using Limits = std::numeric_limits<std::int32_t>;
    if (count == 3)
        property.typeCode = static_cast<std::int32_t>(WholeNumberOf(parts[2], Limits::min(), Limits::max()));
    return property;
}

}  // namespace

Entity EntityReader::Add(simdjson::dom::object object) {
    Members vdf(object, vdfMembers, "vdf.");
    std::string_view kindName = vdf.Has(KindName) ? vdf.Text(KindName) : drawing::KindName(Kind::Point);
    std::string_view layer = vdf.Has(LayerName) ? vdf.Text(LayerName) : "0";
    if (layer != drawing_.activeLayerName()) drawing_.setActiveLayer(layer);
    Kind kind = drawing::KindOf(kindName);
    ReadPlace(vdf, kind);
    Entity entity = Create(vdf, kind, kindName);
    drawing::Style style = StyleOf(vdf);
    if (entity.style() != style) entity.setStyle(style);
    if (vdf.Has(Label)) entity.setLabel(vdf.Text(Label));
    if (vdf.Has(Hyperlink)) entity.setHyperlink(vdf.Text(Hyperlink));
    entity.setClosed(vdf.Flag(Closed));
    entity.setFilled(vdf.Flag(Filled));
    if (vdf.Has(XProperties)) vdf.Get(XProperties, [&](element list) { ReadXProperties(list); });
    return entity;
}

void EntityReader::ReadPlace(const Members& vdf, Kind kind) {
    points_.clear();
    if (vdf.Has(Vertices))
        vdf.Get(Vertices, [&](element list) { ReadPoints(list, points_); });
    else if (vdf.Has(Position))
        points_.push_back(vdf.Get(Position, PointOf));
    else if (kind != Kind::Polyline && kind != Kind::Line && kind != Kind::Other)
        points_.push_back({});
}

Entity EntityReader::Create(const Members& vdf, Kind kind, std::string_view kindName) {
    drawing::Shape shape = ShapeOf(vdf, kind, kindName);
    if (kind == Kind::Text && points_.empty()) points_.push_back({});
    std::span<const drawing::Point> points = points_;
    Entity entity = kind == Kind::Text
                        ? drawing_.addText(points[0], vdf.Text(Text), shape.size, shape.rotation)
                        : drawing_.addEntity(kind, kindName);
    for (const drawing::Point& point : points.subspan(entity.vertexCount())) entity.appendVertex(point);
    if (entity.shape() != shape) entity.setShape(shape);
    return entity;
}

void EntityReader::ReadXProperties(element list) {
    simdjson::dom::array properties = ArrayOf(list);
    names_.Start();
    try {
        for (element item : properties) {
            XProperty property = XPropertyOf(item);
            names_.Add(property.name, property.typeCode);
        }
    } catch (const BadValue& error) {
        throw BadValue("number " + std::to_string(names_.Count() + 1), error.what());
    }
    names_.BeginValues();
    for (element item : properties) drawing_.appendValue(XPropertyOf(item).value);
}

}  // namespace vexlator::vdfjson
