// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// The geometry of features.
#include "import/gml/GmlXmlReader.h"
#include "platform/Errors.h"

#include <algorithm>
#include <utility>

namespace vexlator::importer {

namespace {

using platform::ReadError;

/// What the points of a feature may take, in bytes, before it counts as damaged.
constexpr std::size_t mostPointMemory = std::size_t{128} << 20;
constexpr std::size_t partCost = 128;  ///< of a part, with its entity

char SeparatorOf(XmlAttributes attributes, std::string_view name, char usual) {
    for (const XmlAttribute& attribute : attributes)
        if (attribute.name == name && !attribute.value.empty()) return attribute.value[0];
    return usual;
}

}  // namespace

/// What is wrong with coordinates costs their feature, not the file.
template <typename Step>
void GmlXmlReader::TryCoordinates(Step step) {
    if (!feature_.damage.empty()) return;
    try {
        step();
    } catch (const ReadError& error) {
        Damage(error.Reason());
    }
    std::size_t memory = feature_.points.size() * sizeof(util::PlanePoint) + feature_.parts.size() * partCost;
    if (memory > mostPointMemory) Damage("more than 128 MB of points");
}

void GmlXmlReader::Damage(const std::string& reason) {
    if (feature_.damage.empty()) feature_.damage = ReadError::AtLine(line) + ": " + reason;
}

void GmlXmlReader::CoordinatesText(std::string_view text) {
    TryCoordinates([&] { coordinates_.Append(text); });
}

/// An element of another namespace turns out to be a geometry when its content comes: one with rings is a
/// surface, any other a point or a line.
void GmlXmlReader::BecomeGeometry(GmlElement content, Open& around) {
    bool hasRings =
        content == GmlElement::Exterior || content == GmlElement::Interior || content == GmlElement::Patches;
    around.isFeature |= around.scope == Scope::Feature;
    around.scope = Scope::Geometry;
    around.isSubstitute = true;
    around.element = hasRings ? GmlElement::Geometry : GmlElement::Curve;
    around.firstPoint = feature_.points.size();
    if (!hasRings) BeginPart(around);
}

void GmlXmlReader::StartInGeometry(std::string_view name, XmlAttributes attributes, Open& open) {
    Open& around = open_.back();
    if (around.isSubstitute && !open.isGml) {
        StartInFeature(name, attributes, open);
        return;
    }
    GmlElement element = ElementOf(name, open);
    bool isSubstitute = around.element == GmlElement::Other && !around.isGml && !rules_.lineLayout;
    if (isSubstitute && IsGeometryContent(element)) BecomeGeometry(element, around);
    StartGeometry(element, attributes, open);
}

void GmlXmlReader::StartGeometry(GmlElement element, XmlAttributes attributes, Open& open) {
    open.element = element;
    open.scope = feature_.damage.empty() ? Scope::Geometry : Scope::Skipped;
    if (open.scope == Scope::Skipped) return;
    open.firstPoint = feature_.points.size();
    ReadGeometryAttributes(attributes, open);
    feature_.hasArcs |= element == GmlElement::Arc || element == GmlElement::Unsupported;
    switch (element) {
        case GmlElement::Point:
        case GmlElement::Curve:
            BeginPart(open);
            break;
        case GmlElement::Exterior:
            ring_ = GmlPart::Kind::Ring;
            break;
        case GmlElement::Interior:
            ring_ = GmlPart::Kind::Hole;
            break;
        case GmlElement::Unsupported:
        case GmlElement::BoundedBy:
        case GmlElement::Envelope:
            open.scope = Scope::Skipped;
            break;
        case GmlElement::Pos:
        case GmlElement::PosList:
        case GmlElement::Coordinates:
        case GmlElement::Coord:
            BeginCoordinates(attributes, open);
            break;
        default:
            break;
    }
}

void GmlXmlReader::ReadGeometryAttributes(XmlAttributes attributes, Open& open) {
    for (const auto& [name, value] : attributes) {
        bool tellsDimension = name == "dimension" || (name == "srsDimension" && rules_.lineLayout);
        if (tellsDimension) open.reference.dimension = GmlDimension(value);
        if (name == "orientation" && value == "-" && open.element == GmlElement::Curve) open.reversed = true;
    }
    if (open.reference.dimension == 3) feature_.threeDimensional = true;
    if (open.reversed) ++reversals_;
}

void GmlXmlReader::EndGeometry(const Open& open) {
    switch (open.element) {
        case GmlElement::Point:
            EndPart(open);
            break;
        case GmlElement::Curve:
        case GmlElement::Segment:
        case GmlElement::Arc:
            EndCurve(open);
            break;
        case GmlElement::Exterior:
        case GmlElement::Interior:
            ring_ = GmlPart::Kind::Path;
            break;
        case GmlElement::Axis:
            if (inCoordinates_) CoordinatesText(" ");
            break;
        case GmlElement::Pos:
        case GmlElement::PosList:
        case GmlElement::Coordinates:
        case GmlElement::Coord:
            EndCoordinates(open);
            break;
        default:
            break;
    }
}

/// A curve of several segments repeats their common points.
void GmlXmlReader::EndCurve(const Open& open) {
    std::vector<util::PlanePoint>& points = feature_.points;
    std::size_t first = std::min(open.firstPoint, points.size());
    auto begin = points.begin() + static_cast<std::ptrdiff_t>(first);
    if (open.reversed) {
        std::reverse(begin, points.end());
        --reversals_;
    }
    bool follows = inPart_ && !open.beginsPart && first > feature_.parts.back().begin;
    if (follows && reversals_ == 0 && begin != points.end() && *begin == *(begin - 1)) points.erase(begin);
    EndPart(open);
}

void GmlXmlReader::BeginCoordinates(XmlAttributes attributes, Open& open) {
    if (inCoordinates_) {
        Damage("a coordinate element within a coordinate element");
        open.scope = Scope::Skipped;
        return;
    }
    inCoordinates_ = true;
    BeginPart(open);
    if (rules_.lineLayout && !rules_.fullRings) {
        feature_.points.clear();
        feature_.parts.back() = {};
    }
    CoordinateFormat format = FormatOf(attributes, open);
    if (open.element == GmlElement::PosList && format.valuesPerPoint == 0)
        Damage("srsDimension is none of 2, 3 and 4");
    coordinates_.Begin(format, feature_.points);
}

CoordinateFormat GmlXmlReader::FormatOf(XmlAttributes attributes, const Open& open) const {
    CoordinateFormat format;
    format.strict = !rules_.lineLayout;
    format.valuesPerPoint = CoordinateFormat::allInOne;
    if (open.element == GmlElement::PosList) format.valuesPerPoint = open.reference.dimension;
    if (open.element == GmlElement::PosList && rules_.lineLayout)
        format.valuesPerPoint = feature_.threeDimensional ? 3 : 2;
    if (open.element != GmlElement::Coordinates) return format;
    format.marked = true;
    format.component = SeparatorOf(attributes, "cs", ',');
    format.tuple = SeparatorOf(attributes, "ts", ' ');
    format.isGuessed = format.strict && format.component == ',' && format.tuple == ' ';
    format.decimal = SeparatorOf(attributes, "decimal", '.');
    return format;
}

void GmlXmlReader::EndCoordinates(const Open& open) {
    inCoordinates_ = false;
    TryCoordinates([&] { coordinates_.End(); });
    EndPart(open);
}

void GmlXmlReader::BeginPart(Open& open) {
    if (std::exchange(inPart_, true)) return;
    open.beginsPart = true;
    if (!rules_.fullRings) {
        feature_.points.clear();
        feature_.parts.clear();
        open.firstPoint = 0;
    }
    GmlPart& part = feature_.parts.emplace_back();
    part.begin = feature_.points.size();
    if (!rules_.fullRings) return;
    part.kind = ring_;
    if (ring_ == GmlPart::Kind::Ring) ++feature_.surfaces;
    part.surface = feature_.surfaces;
}

void GmlXmlReader::EndPart(const Open& open) {
    if (!open.beginsPart) return;
    inPart_ = false;
    if (feature_.parts.back().begin == feature_.points.size()) feature_.parts.pop_back();
}

}  // namespace vexlator::importer
