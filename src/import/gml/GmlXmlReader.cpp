// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/gml/GmlXmlReader.h"

#include "platform/Errors.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

namespace vexlator::importer {

namespace {

using platform::ReadError;

constexpr std::string_view gmlNamespace = "http://www.opengis.net/gml";
constexpr std::size_t mostPrefixes = 16;
constexpr std::size_t mostText = std::size_t{64} << 20;
constexpr std::size_t propertyCost = sizeof(GmlProperty);

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

}  // namespace

void GmlXmlReader::ReadFeatures(const Take& take) {
    take_ = &take;
    ParseXml(*blocks_, *this);
}

void GmlXmlReader::StartElement(std::string_view name, XmlAttributes attributes) {
    NotePrefixes(attributes);
    Open open;
    open.scope = Scope::Skipped;
    open.isGml = IsGml(name);
    if (!open_.empty()) open.reference = open_.back().reference;
    Scope parent = open_.empty() ? Scope::Outside : open_.back().scope;
    ReadReference(attributes, parent, open);
    switch (parent) {
        case Scope::Outside:
            StartOutside(name, attributes, open);
            break;
        case Scope::Holder:
            StartInHolder(name, attributes, open);
            break;
        case Scope::Feature:
        case Scope::Property:
            StartInFeature(name, attributes, open);
            break;
        case Scope::Geometry:
            StartInGeometry(name, attributes, open);
            break;
        case Scope::Skipped:
            StartInBoundedBy(ElementOf(name, open), open);
            break;
    }
    open_.push_back(open);
}

void GmlXmlReader::EndElement() {
    Open open = open_.back();
    open_.pop_back();
    if (open.scope == Scope::Outside) EndOuterElement();
    if (open.scope == Scope::Feature) EndFeature();
    if (open.scope == Scope::Property) EndProperty();
    if (open.scope == Scope::Geometry) EndGeometry(open);
    if (open.isFeature) EndFeature();
    if (outer_.size() > open_.size()) outer_.pop_back();
}

void GmlXmlReader::Text(std::string_view text) {
    if (inCoordinates_) {
        CoordinatesText(text);
    } else if (inProperty_) {
        CountText(text.size());
        if (inProperty_) feature_.properties.back().value += text;
    }
}

// --- Namespaces

void GmlXmlReader::NotePrefixes(XmlAttributes attributes) {
    for (const auto& [name, uri] : attributes) {
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

/// The meaning of an element; that of another namespace has none.
GmlElement GmlXmlReader::ElementOf(std::string_view name, const Open& open) {
    return open.isGml ? GmlElementNamed(LocalName(name)) : GmlElement::Other;
}

void GmlXmlReader::ReadReference(XmlAttributes attributes, Scope parent, Open& open) {
    bool isRead = parent != Scope::Skipped || open_.back().element == GmlElement::BoundedBy;
    if (!isRead || attributes.empty() || rules_.lineLayout) return;
    references_.Read(attributes, open.reference);
}

/// The extent of a collection or a feature tells the coordinate system of all that follows in it.
void GmlXmlReader::StartInBoundedBy(GmlElement element, const Open& open) {
    bool isExtent = open_.back().element == GmlElement::BoundedBy && element == GmlElement::Envelope;
    if (isExtent && open_.size() >= 2) open_[open_.size() - 2].reference = open.reference;
}

// --- Elements around features

void GmlXmlReader::StartOutside(std::string_view name, XmlAttributes attributes, Open& open) {
    GmlElement element = ElementOf(name, open);
    open.element = element;
    if (element == GmlElement::BoundedBy || element == GmlElement::Envelope) return;
    bool isContent = IsGeometryContent(element) && !open_.empty() && !open_.back().isGml;
    if (rules_.lineLayout || !(BeginsGeometry(element) || isContent)) {
        StartOuterElement(name, attributes, open);
        return;
    }
    LeaveProperty();
    std::size_t geometryDepth = open_.size() - (isContent ? 1 : 0);
    std::optional<GmlOwner> owner =
        ImplyFeature(geometryDepth, isContent ? outer_.back().name : std::string(name));
    if (!owner) return;
    (isContent ? open_.back() : open).isFeature = owner->isGeometryItself;
    if (isContent) BecomeGeometry(element, open_.back());
    StartGeometry(element, attributes, open);
}

void GmlXmlReader::StartOuterElement(std::string_view name, XmlAttributes attributes, Open& open) {
    LeaveProperty();
    bool holdsFeatures = HoldsFeatures(LocalName(name));
    open.scope = holdsFeatures ? Scope::Holder : Scope::Outside;
    GmlOuterElement& element = outer_.emplace_back();
    element.name = name;
    element.identifier = IdentifierOf(attributes);
    element.isGml = open.isGml;
    element.holdsFeatures = holdsFeatures;
    element.firstProperty = feature_.properties.size();
    element.textBefore = textBytes_;
    if (!holdsFeatures && !rules_.lineLayout) BeginProperty(name, attributes);
}

/// Values of what ends here can only belong to an element around it, or to none below the root.
void GmlXmlReader::EndOuterElement() {
    const GmlOuterElement& element = outer_.back();
    if (inProperty_) {
        if (outer_.size() >= 2 && !element.isGml) outer_[outer_.size() - 2].hasOwnValue = true;
        EndProperty();
    } else if (outer_.size() == 2 && element.firstProperty < feature_.properties.size()) {
        feature_.properties.resize(element.firstProperty);
        textBytes_ = element.textBefore;
    }
}

void GmlXmlReader::StartInHolder(std::string_view name, XmlAttributes attributes, Open& open) {
    open.element = ElementOf(name, open);
    if (open.element == GmlElement::BoundedBy) return;
    if (name.ends_with("FeatureCollection")) {
        StartOuterElement(name, attributes, open);
        return;
    }
    ForgetFeature();
    BeginFeature(name, IdentifierOf(attributes));
    open.scope = Scope::Feature;
    if (rules_.lineLayout || !BeginsGeometry(open.element)) return;
    open.isFeature = true;
    StartGeometry(open.element, attributes, open);
}

/// Begins the feature of a geometry that is in no member; `depth` counts the elements around the geometry.
std::optional<GmlOwner> GmlXmlReader::ImplyFeature(std::size_t depth, const std::string& geometryName) {
    std::optional<GmlOwner> owner =
        OwnerOfGeometry(std::span(outer_).first(depth), feature_.properties.size());
    if (!owner) return owner;
    if (owner->isGeometryItself) {
        ForgetFeature();
        BeginFeature(geometryName, "");
        return owner;
    }
    const GmlOuterElement& element = outer_[owner->element];
    auto begin = feature_.properties.begin();
    auto others = std::min(element.firstProperty, feature_.properties.size());
    feature_.properties.erase(begin, begin + static_cast<std::ptrdiff_t>(others));
    textBytes_ -= std::min(element.textBefore, textBytes_);
    BeginFeature(element.name, element.identifier);
    isImplied_ = true;
    for (std::size_t i = owner->element; i < depth; ++i) open_[i].scope = Scope::Property;
    open_[owner->element].scope = Scope::Feature;
    outer_.resize(owner->element + 1);
    return owner;
}

// --- Features and their properties

std::string GmlXmlReader::IdentifierOf(XmlAttributes attributes) const {
    std::string identifier;
    for (const auto& [key, value] : attributes)
        if (key == "fid" || (LocalName(key) == "id" && IsGml(key))) identifier = value;
    return identifier;
}

void GmlXmlReader::BeginFeature(std::string_view name, const std::string& identifier) {
    feature_.type = LocalName(name);
    feature_.identifier = identifier;
    osgb_ = PrefixOf(name) == "osgb";
    ring_ = GmlPart::Kind::Path;
}

void GmlXmlReader::EndFeature() {
    auto isToid = [](const GmlProperty& property) { return property.name == "TOID"; };
    std::string_view toid = osgb_ ? ToidDigits(feature_.identifier) : std::string_view();
    if (!toid.empty() && std::ranges::none_of(feature_.properties, isToid))
        feature_.properties.push_back({"TOID", std::string(toid)});
    if (!feature_.damage.empty()) {
        feature_.points.clear();
        feature_.parts.clear();
        feature_.surfaces = 0;
    }
    (*take_)(feature_);
    ForgetFeature();
}

void GmlXmlReader::ForgetFeature() {
    feature_.Clear();
    textBytes_ = 0;
    inProperty_ = isImplied_ = false;
}

void GmlXmlReader::StartInFeature(std::string_view name, XmlAttributes attributes, Open& open) {
    LeaveProperty();
    Open& around = open_.back();
    if (isImplied_ && around.scope == Scope::Feature && HoldsFeatures(LocalName(name))) {
        EndFeature();  // what was taken for a feature is a collection
        around.scope = Scope::Outside;
        StartOuterElement(name, attributes, open);
        return;
    }
    GmlElement element = ElementOf(name, open);
    open.element = element;
    if (element == GmlElement::BoundedBy || element == GmlElement::Envelope) return;
    bool isContent = IsGeometryContent(element) && !around.isGml && !rules_.lineLayout;
    if (isContent) BecomeGeometry(element, around);
    if (isContent || BeginsGeometry(element)) {
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
    std::string_view trimmed = TrimmedXml(value);
    if (trimmed.empty()) trimmed = reference_;
    if (trimmed.size() != value.size()) value = std::string(trimmed);
}

/// Outside of features nobody may ever ask for the values.
void GmlXmlReader::CountText(std::size_t bytes) {
    textBytes_ += bytes;
    if (textBytes_ <= mostText) return;
    Scope around = open_.empty() ? Scope::Outside : open_.back().scope;
    if (around != Scope::Outside && around != Scope::Holder)
        throw ReadError("", "", "a feature with more than 64 MB of properties");
    ForgetFeature();
}

}  // namespace vexlator::importer
