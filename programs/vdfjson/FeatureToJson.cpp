// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfjson/FeatureToJson.h"

#include "util/JsonText.h"

#include <cmath>
#include <unordered_set>

namespace vexlator::vdfjson {

using drawing::Entity;
using drawing::Kind;

namespace {

/// A damaged drawing can name one long text in very many attribute sets. The memory for them is limited.
constexpr std::size_t mostNamesSize = std::size_t{64} << 20;

bool StandsAtPoint(Kind kind) {
    return kind != Kind::Polyline && kind != Kind::Line && kind != Kind::Other;
}

void AppendPoint(std::string& out, const drawing::Point& point) {
    out += '[';
    util::AppendNumber(out, point.x);
    out += ',';
    util::AppendNumber(out, point.y);
    out += ',';
    util::AppendNumber(out, point.z);
    out += ']';
}

}  // namespace

void FeatureToJson::operator()(Entity entity) {
    FormatVertices(entity);
    const Names& names = NamesOf(entity);
    out_ += "{\"type\":\"Feature\",\"id\":\"";
    out_ += entity.handle();
    out_ += "\",\"geometry\":";
    AppendGeometry(entity);
    out_ += ",\"properties\":{";
    AppendProperties(entity, names);
    out_ += "},\"vdf\":{";
    AppendVdf(entity);
    AppendXProperties(entity, names);
    out_ += "}}";
}

void FeatureToJson::FormatVertices(const Entity& entity) {
    vertices_.clear();
    firstVertexEnd_ = 0;
    isFinite_ = true;
    for (std::size_t i = 0; i < entity.vertexCount(); ++i) {
        drawing::Point point = entity.vertex(i);
        isFinite_ = isFinite_ && std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
        if (i > 0) vertices_ += ',';
        AppendPoint(vertices_, point);
        if (i == 0) firstVertexEnd_ = vertices_.size();
    }
}

const FeatureToJson::Names& FeatureToJson::NamesOf(const Entity& entity) {
    if (auto known = names_.find(entity.attributeSet()); known != names_.end()) return known->second;
    if (namesSize_ > mostNamesSize) {
        names_.clear();
        namesSize_ = 0;
    }
    Names& names = names_[entity.attributeSet()];
    std::unordered_set<std::string> seen;
    drawing::XProperties attributes = entity.xproperties();
    std::size_t count = attributes.count();
    for (std::size_t i = 0; i < count; ++i) {
        Name name;
        util::AppendText(name.quoted, attributes.name(i));
        name.typeCode = attributes.typeCode(i);
        name.isFirst = seen.insert(name.quoted).second;
        namesSize_ += sizeof(Name) + name.quoted.size();
        names.push_back(std::move(name));
    }
    return names;
}

// --- The part for GIS viewers

void FeatureToJson::AppendGeometry(const Entity& entity) {
    Kind kind = entity.kindCode();
    std::size_t count = entity.vertexCount();
    bool hasCourse = kind == Kind::Polyline || kind == Kind::Line;
    if (!isFinite_ || kind == Kind::Other || count < (hasCourse ? 2 : 1)) {
        out_ += "null";
        return;
    }
    if (!hasCourse) {
        out_.append("{\"type\":\"Point\",\"coordinates\":").append(FirstVertex()).append("}");
        return;
    }
    bool endsAtStart = entity.vertex(0) == entity.vertex(count - 1);
    bool isPolygon = kind == Kind::Polyline && entity.isClosed() && count + (endsAtStart ? 0 : 1) >= 4;
    out_ +=
        isPolygon ? "{\"type\":\"Polygon\",\"coordinates\":[[" : "{\"type\":\"LineString\",\"coordinates\":[";
    out_ += vertices_;
    if (isPolygon && !endsAtStart) out_.append(",").append(FirstVertex());
    out_ += isPolygon ? "]]}" : "]}";
}

void FeatureToJson::AppendProperties(const Entity& entity, const Names& names) {
    drawing::ValueCursor values = entity.xproperties().values();
    bool isFirst = true;
    for (const Name& name : names) {
        std::string_view value = values.Next();
        if (!name.isFirst) continue;
        if (!isFirst) out_ += ',';
        isFirst = false;
        out_ += name.quoted;
        out_ += ':';
        util::AppendText(out_, value);
    }
}

// --- The entity itself

void FeatureToJson::TextMember(std::string_view name, std::string_view value) {
    Member(name);
    util::AppendText(out_, value);
}

template <typename Number>
void FeatureToJson::NumberMember(std::string_view name, Number value) {
    Member(name);
    if constexpr (std::is_floating_point_v<Number>)
        util::AppendNumber(out_, value);
    else
        util::AppendNumber(out_, std::int64_t{value});
}

void FeatureToJson::FlagMember(std::string_view name, bool value) {
    Member(name);
    util::AppendFlag(out_, value);
}

void FeatureToJson::AppendVdf(const Entity& entity) {
    AppendCommon(entity);
    AppendArea(entity);
    AppendPlace(entity);
    AppendShape(entity);
}

void FeatureToJson::AppendCommon(const Entity& entity) {
    const drawing::Style& style = entity.style();
    out_ += "\"kind\":";
    util::AppendText(out_, entity.kind());
    TextMember("layer", entity.layerName());
    NumberMember("colour", style.colour);
    TextMember("lineType", style.lineType);
    NumberMember("lineWeight", style.lineWeight);
    TextMember("label", entity.label());
    TextMember("hyperlink", entity.hyperlink());
}

/// Polylines always have these members. Other kinds have them if they are not empty.
void FeatureToJson::AppendArea(const Entity& entity) {
    const drawing::Style& style = entity.style();
    bool always = entity.kindCode() == Kind::Polyline;
    if (always || entity.isClosed()) FlagMember("closed", entity.isClosed());
    if (always || entity.isFilled()) FlagMember("filled", entity.isFilled());
    if (always || style.fillColour != drawing::defaultColour) NumberMember("fillColour", style.fillColour);
    if (always || style.outlineColour != drawing::defaultColour)
        NumberMember("outlineColour", style.outlineColour);
}

void FeatureToJson::AppendPlace(const Entity& entity) {
    bool atPoint = StandsAtPoint(entity.kindCode()) && entity.vertexCount() == 1;
    Member(atPoint ? "position" : "vertices");
    if (!atPoint) out_ += '[';
    out_ += vertices_;
    if (!atPoint) out_ += ']';
}

void FeatureToJson::AppendShape(const Entity& entity) {
    const drawing::Shape& shape = entity.shape();
    switch (entity.kindCode()) {
        case Kind::Insert:
            TextMember("block", shape.name);
            Member("scale");
            out_ += '[';
            util::AppendNumber(out_, shape.scaleX);
            out_ += ',';
            util::AppendNumber(out_, shape.scaleY);
            out_ += ']';
            NumberMember("rotation", shape.rotation);
            break;
        case Kind::Circle:
            NumberMember("radius", shape.size);
            break;
        case Kind::Arc:
            NumberMember("radius", shape.size);
            NumberMember("startAngle", shape.startAngle);
            NumberMember("endAngle", shape.endAngle);
            break;
        case Kind::Text:
            NumberMember("rotation", shape.rotation);
            TextMember("text", entity.text());
            NumberMember("height", shape.size);
            TextMember("style", shape.name);
            NumberMember("alignment", shape.alignment);
            break;
        case Kind::Point:
        case Kind::Polyline:
        case Kind::Line:
        case Kind::Other:
            break;
    }
}

void FeatureToJson::AppendXProperties(const Entity& entity, const Names& names) {
    out_ += ",\"xproperties\":[";
    drawing::ValueCursor values = entity.xproperties().values();
    bool isFirst = true;
    for (const Name& name : names) {
        out_ += isFirst ? "[" : ",[";
        isFirst = false;
        out_ += name.quoted;
        out_ += ',';
        util::AppendText(out_, values.Next());
        if (name.typeCode != drawing::textTypeCode) {
            out_ += ',';
            util::AppendNumber(out_, std::int64_t{name.typeCode});
        }
        out_ += ']';
    }
    out_ += ']';
}

}  // namespace vexlator::vdfjson
