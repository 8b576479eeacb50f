// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/GmlGeometryReader.h"

#include "platform/Errors.h"

#include <algorithm>
#include <utility>

namespace vexlator::formats {

namespace {

using platform::ReadError;

/// Limit for the points of a feature, in bytes. A larger feature counts as damaged.
constexpr std::size_t mostPointMemory = std::size_t{128} << 20;
constexpr std::size_t partCost = 128;  ///< memory of a part with its entity

char SeparatorOf(XmlAttributes attributes, std::string_view name, char usual) {
    for (const XmlAttribute& attribute : attributes)
        if (attribute.name == name && !attribute.value.empty()) return attribute.value[0];
    return usual;
}

}  // namespace

/// A fault of coordinates loses their feature, not the file.
template <typename Step>
void GmlGeometryReader::TryCoordinates(Step step) {
    if (!feature_.damage.empty()) return;
    try {
        step();
    } catch (const ReadError& error) {
        Damage(error.Reason());
    }
    std::size_t memory = feature_.points.size() * sizeof(util::PlanePoint) + feature_.parts.size() * partCost;
    if (memory > mostPointMemory) Damage("more than 128 MB of points");
}

void GmlGeometryReader::Damage(const std::string& reason) {
    if (feature_.damage.empty()) feature_.damage = ReadError::AtLine(line_) + ": " + reason;
}

void GmlGeometryReader::Text(std::string_view text) {
    TryCoordinates([&] { coordinates_.Append(text); });
}

void GmlGeometryReader::BecomeGeometry(GmlElement content, GmlOpenElement& around) {
    bool hasRings =
        content == GmlElement::Exterior || content == GmlElement::Interior || content == GmlElement::Patches;
    around.isFeature |= around.scope == GmlScope::Feature;
    around.scope = GmlScope::Geometry;
    around.isSubstitute = true;
    around.element = hasRings ? GmlElement::Geometry : GmlElement::Curve;
    around.firstPoint = feature_.points.size();
    if (!hasRings) BeginPart(around);
}

void GmlGeometryReader::Start(GmlElement element, XmlAttributes attributes, GmlOpenElement& open) {
    open.element = element;
    open.scope = feature_.damage.empty() ? GmlScope::Geometry : GmlScope::Skipped;
    if (open.scope == GmlScope::Skipped) return;
    open.firstPoint = feature_.points.size();
    ReadAttributes(attributes, open);
    feature_.hasArcs |= element == GmlElement::Arc || element == GmlElement::Unsupported;
    StartMeaning(attributes, open);
    if (open.reversed) reversed_.push_back(open.firstPoint);
}

void GmlGeometryReader::StartMeaning(XmlAttributes attributes, GmlOpenElement& open) {
    switch (open.element) {
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
            open.scope = GmlScope::Skipped;
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

void GmlGeometryReader::ReadAttributes(XmlAttributes attributes, GmlOpenElement& open) {
    for (const auto& [name, value] : attributes) {
        bool tellsDimension = name == "dimension" || (name == "srsDimension" && rules_.lineLayout);
        if (tellsDimension) open.reference.dimension = GmlDimension(value);
        if (name == "orientation" && value == "-" && open.element == GmlElement::Curve) open.reversed = true;
    }
    if (open.reference.dimension == 3) feature_.threeDimensional = true;
}

void GmlGeometryReader::End(const GmlOpenElement& open) {
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
            if (inCoordinates_) Text(" ");
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

/// The segments of a curve repeat their common points.
void GmlGeometryReader::EndCurve(const GmlOpenElement& open) {
    std::vector<util::PlanePoint>& points = feature_.points;
    std::size_t first = std::min(open.firstPoint, points.size());
    auto begin = points.begin() + static_cast<std::ptrdiff_t>(first);
    if (open.reversed) {
        std::reverse(begin, points.end());
        reversed_.pop_back();
    }
    std::size_t course = inPart_ ? feature_.parts.back().begin : 0;
    if (!reversed_.empty()) course = std::max(course, reversed_.back());
    bool follows = inPart_ && !open.beginsPart && first > course;
    if (follows && begin != points.end() && *begin == *(begin - 1)) points.erase(begin);
    EndPart(open);
}

void GmlGeometryReader::BeginCoordinates(XmlAttributes attributes, GmlOpenElement& open) {
    if (inCoordinates_) {
        Damage("a coordinate element inside a coordinate element");
        open.scope = GmlScope::Skipped;
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
        Damage("srsDimension is not 2, 3 or 4");
    coordinates_.Begin(format, feature_.points);
}

CoordinateFormat GmlGeometryReader::FormatOf(XmlAttributes attributes, const GmlOpenElement& open) const {
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

void GmlGeometryReader::EndCoordinates(const GmlOpenElement& open) {
    inCoordinates_ = false;
    TryCoordinates([&] { coordinates_.End(); });
    EndPart(open);
}

void GmlGeometryReader::BeginPart(GmlOpenElement& open) {
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

void GmlGeometryReader::EndPart(const GmlOpenElement& open) {
    if (!open.beginsPart) return;
    inPart_ = false;
    if (feature_.parts.back().begin == feature_.points.size()) feature_.parts.pop_back();
}

}  // namespace vexlator::formats
