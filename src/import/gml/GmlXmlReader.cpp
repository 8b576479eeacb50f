// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/gml/GmlXmlReader.h"

#include "platform/Errors.h"
#include "util/Numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vexlator::importer {

namespace {

using platform::ReadError;

constexpr std::string_view gmlNamespace = "http://www.opengis.net/gml";
constexpr std::size_t mostPrefixes = 16;
constexpr std::size_t mostText = std::size_t{64} << 20;
constexpr std::size_t propertyCost = sizeof(GmlProperty);
constexpr std::string_view space = " \t\r\n";

std::string_view Trimmed(std::string_view text) {
    std::size_t begin = text.find_first_not_of(space);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(space) - begin + 1);
}

std::string_view Attribute(XmlAttributes attributes, std::string_view name) {
    for (const XmlAttribute& attribute : attributes)
        if (attribute.name == name) return attribute.value;
    return {};
}

/// The digits of "osgb1000000347615112"; "" for another identifier.
std::string_view ToidDigits(std::string_view identifier) {
    if (!identifier.starts_with("osgb")) return {};
    identifier.remove_prefix(4);
    bool digits = identifier.find_first_not_of("0123456789") == std::string_view::npos;
    return digits ? identifier : std::string_view();
}

std::size_t DimensionOf(std::string_view text) {
    static constexpr std::array<std::string_view, 3> known = {"2", "3", "4"};
    auto found = std::find(known.begin(), known.end(), Trimmed(text));
    if (found == known.end())
        throw ReadError("", "", "points of \"" + std::string(text.substr(0, 20)) + "\" dimensions");
    return static_cast<std::size_t>(found - known.begin()) + 2;
}

char SeparatorOf(XmlAttributes attributes, std::string_view name, char usual) {
    std::string_view text = Attribute(attributes, name);
    return text.empty() ? usual : text[0];
}

bool BeginsGeometry(GmlElement element) {
    return element >= GmlElement::Geometry && element <= GmlElement::Unsupported;
}

}  // namespace

void GmlXmlReader::ReadFeatures(const Take& take) {
    take_ = &take;
    ParseXml(*blocks_, *this);
}

void GmlXmlReader::StartElement(std::string_view name, XmlAttributes attributes) {
    NotePrefixes(attributes);
    Scope parent = open_.empty() ? Scope::Outside : open_.back().scope;
    Open open;
    open.scope = Scope::Skipped;
    switch (parent) {
        case Scope::Outside:
        case Scope::Holder:
            open.scope = ScopeOutside(parent, LocalName(name));
            if (open.scope == Scope::Feature) BeginFeature(name, attributes);
            break;
        case Scope::Feature:
        case Scope::Property:
            StartInFeature(name, attributes, open);
            break;
        case Scope::Geometry:
            StartGeometry(IsGml(name) ? GmlElementNamed(LocalName(name)) : GmlElement::Other, attributes,
                          open);
            break;
        case Scope::Skipped:
            break;
    }
    open_.push_back(open);
}

void GmlXmlReader::EndElement() {
    Open open = open_.back();
    open_.pop_back();
    if (open.scope == Scope::Feature) EndFeature();
    if (open.scope == Scope::Property) EndProperty();
    if (open.scope == Scope::Geometry) EndGeometry(open);
}

void GmlXmlReader::Text(std::string_view text) {
    if (inCoordinates_) {
        coordinates_.Append(text);
    } else if (inProperty_) {
        CountText(text.size());
        feature_.properties.back().value += text;
    }
}

// --- Namespaces

void GmlXmlReader::NotePrefixes(XmlAttributes attributes) {
    for (const auto& [name, uri] : attributes) {
        if (name == "srsName" && systemName_.empty()) systemName_ = uri;
        if (name != "xmlns" && !name.starts_with("xmlns:")) continue;
        std::string prefix(name.substr(std::min<std::size_t>(6, name.size())));
        std::erase(gmlPrefixes_, prefix);
        if (uri.starts_with(gmlNamespace) && gmlPrefixes_.size() < mostPrefixes)
            gmlPrefixes_.push_back(std::move(prefix));
    }
}

bool GmlXmlReader::IsGml(std::string_view name) const {
    std::string_view prefix = PrefixOf(name);
    return std::find(gmlPrefixes_.begin(), gmlPrefixes_.end(), prefix) != gmlPrefixes_.end();
}

// --- Features and their properties

GmlXmlReader::Scope GmlXmlReader::ScopeOutside(Scope parent, std::string_view name) const {
    if (parent == Scope::Outside) return HoldsFeatures(name) ? Scope::Holder : Scope::Outside;
    return name.ends_with("FeatureCollection") ? Scope::Outside : Scope::Feature;
}

void GmlXmlReader::BeginFeature(std::string_view name, XmlAttributes attributes) {
    feature_.Clear();
    feature_.type = LocalName(name);
    for (const auto& [key, value] : attributes)
        if (key == "fid" || (LocalName(key) == "id" && IsGml(key))) feature_.identifier = value;
    osgb_ = PrefixOf(name) == "osgb";
    textBytes_ = 0;
    ring_ = GmlPart::Kind::Path;
}

void GmlXmlReader::EndFeature() {
    auto isToid = [](const GmlProperty& property) { return property.name == "TOID"; };
    std::string_view toid = osgb_ ? ToidDigits(feature_.identifier) : std::string_view();
    if (!toid.empty() && std::ranges::none_of(feature_.properties, isToid))
        feature_.properties.push_back({"TOID", std::string(toid)});
    (*take_)(feature_);
}

void GmlXmlReader::StartInFeature(std::string_view name, XmlAttributes attributes, Open& open) {
    LeaveProperty();
    if (LocalName(name) == "boundedBy") return;
    GmlElement element = IsGml(name) ? GmlElementNamed(LocalName(name)) : GmlElement::Other;
    if (BeginsGeometry(element)) {
        StartGeometry(element, attributes, open);
        return;
    }
    open.scope = Scope::Property;
    if (!rules_.lineLayout || name.starts_with("fme")) BeginProperty(name, attributes);
}

void GmlXmlReader::BeginProperty(std::string_view name, XmlAttributes attributes) {
    CountText(name.size() + propertyCost);
    feature_.properties.push_back({std::string(LocalName(name)), ""});
    reference_ = Attribute(attributes, "xlink:href");
    inProperty_ = true;
}

/// A child element shows that the innermost property holds more than text.
void GmlXmlReader::LeaveProperty() {
    if (!std::exchange(inProperty_, false)) return;
    if (rules_.lineLayout)
        feature_.properties.back().value.clear();
    else
        feature_.properties.pop_back();
}

void GmlXmlReader::EndProperty() {
    if (!std::exchange(inProperty_, false) || rules_.lineLayout) return;
    std::string& value = feature_.properties.back().value;
    std::string_view trimmed = Trimmed(value);
    if (trimmed.empty()) trimmed = reference_;
    if (trimmed.size() != value.size()) value = std::string(trimmed);
}

void GmlXmlReader::CountText(std::size_t bytes) {
    textBytes_ += bytes;
    if (textBytes_ > mostText) throw ReadError("", "", "a feature with more than 64 MB of properties");
}

// --- Geometry

void GmlXmlReader::StartGeometry(GmlElement element, XmlAttributes attributes, Open& open) {
    open.scope = Scope::Geometry;
    open.element = element;
    open.dimension = open_.back().dimension;
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
        if (name == "srsDimension" || name == "dimension") open.dimension = DimensionOf(value);
        if (name == "orientation" && value == "-" && open.element == GmlElement::Curve) open.reversed = true;
    }
    if (open.dimension == 3) feature_.threeDimensional = true;
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
            if (inCoordinates_) coordinates_.Append(" ");
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
    if (std::exchange(inCoordinates_, true))
        throw ReadError("", "", "a coordinate element within a coordinate element");
    BeginPart(open);
    if (rules_.lineLayout && !rules_.fullRings) {
        feature_.points.clear();
        feature_.parts.back() = {};
    }
    CoordinateFormat format;
    format.strict = !rules_.lineLayout;
    format.valuesPerPoint = CoordinateFormat::allInOne;
    if (open.element == GmlElement::PosList)
        format.valuesPerPoint = !rules_.lineLayout ? open.dimension : feature_.threeDimensional ? 3 : 2;
    if (open.element == GmlElement::Coordinates) {
        format.marked = true;
        format.component = SeparatorOf(attributes, "cs", ',');
        format.tuple = SeparatorOf(attributes, "ts", ' ');
        format.decimal = SeparatorOf(attributes, "decimal", '.');
    }
    coordinates_.Begin(format, feature_.points);
}

void GmlXmlReader::EndCoordinates(const Open& open) {
    inCoordinates_ = false;
    coordinates_.End();
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
