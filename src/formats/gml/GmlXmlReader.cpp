// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/GmlXmlReader.h"

#include "platform/Errors.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

namespace vexlator::formats {

namespace {

using platform::ReadError;

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
    namespaces_.Note(attributes);
    GmlOpenElement open;
    open.scope = GmlScope::Skipped;
    open.isGml = namespaces_.IsGml(name);
    if (!open_.empty()) open.reference = open_.back().reference;
    GmlScope parent = open_.empty() ? GmlScope::Outside : open_.back().scope;
    ReadReference(attributes, parent, open);
    switch (parent) {
        case GmlScope::Outside:
            StartOutside(name, attributes, open);
            break;
        case GmlScope::Holder:
            StartInHolder(name, attributes, open);
            break;
        case GmlScope::Feature:
        case GmlScope::Property:
            StartInFeature(name, attributes, open);
            break;
        case GmlScope::Geometry:
            StartInGeometry(name, attributes, open);
            break;
        case GmlScope::Skipped:
            StartInBoundedBy(ElementOf(name, open), open);
            break;
    }
    open_.push_back(open);
}

void GmlXmlReader::EndElement() {
    GmlOpenElement open = open_.back();
    open_.pop_back();
    if (open.scope == GmlScope::Outside) EndOuterElement();
    if (open.scope == GmlScope::Feature) EndFeature();
    if (open.scope == GmlScope::Property) properties_.End();
    if (open.scope == GmlScope::Geometry) geometry_.End(open);
    if (open.isFeature) EndFeature();
    if (outer_.size() > open_.size()) outer_.pop_back();
}

void GmlXmlReader::Text(std::string_view text) {
    if (geometry_.TakesText()) {
        geometry_.Text(text);
    } else if (properties_.IsOpen()) {
        MakeRoom(text.size());
        if (properties_.IsOpen()) properties_.Append(text);
    }
}

/// The meaning of an element. Elements of other namespaces have none.
GmlElement GmlXmlReader::ElementOf(std::string_view name, const GmlOpenElement& open) {
    return open.isGml ? GmlElementNamed(LocalName(name)) : GmlElement::Other;
}

void GmlXmlReader::ReadReference(XmlAttributes attributes, GmlScope parent, GmlOpenElement& open) {
    bool isRead = parent != GmlScope::Skipped || open_.back().element == GmlElement::BoundedBy;
    if (!isRead || attributes.empty() || rules_.lineLayout) return;
    references_.Read(attributes, open.reference);
}

/// The extent of a collection or a feature gives the coordinate system of all later elements in it.
void GmlXmlReader::StartInBoundedBy(GmlElement element, const GmlOpenElement& open) {
    bool isExtent = open_.back().element == GmlElement::BoundedBy && element == GmlElement::Envelope;
    if (isExtent && open_.size() >= 2) open_[open_.size() - 2].reference = open.reference;
}

// --- Elements around features

void GmlXmlReader::StartOutside(std::string_view name, XmlAttributes attributes, GmlOpenElement& open) {
    GmlElement element = ElementOf(name, open);
    open.element = element;
    if (element == GmlElement::BoundedBy || element == GmlElement::Envelope) return;
    bool isContent = IsGeometryContent(element) && !open_.empty() && !open_.back().isGml;
    if (rules_.lineLayout || !(BeginsGeometry(element) || isContent)) {
        StartOuterElement(name, attributes, open);
        return;
    }
    properties_.Leave();
    std::size_t geometryDepth = open_.size() - (isContent ? 1 : 0);
    std::optional<GmlOwner> owner =
        ImplyFeature(geometryDepth, isContent ? outer_.back().name : std::string(name));
    if (!owner) return;
    (isContent ? open_.back() : open).isFeature = owner->isGeometryItself;
    if (isContent) geometry_.BecomeGeometry(element, open_.back());
    geometry_.Start(element, attributes, open);
}

void GmlXmlReader::StartOuterElement(std::string_view name, XmlAttributes attributes, GmlOpenElement& open) {
    properties_.Leave();
    bool holdsFeatures = HoldsFeatures(LocalName(name));
    open.scope = holdsFeatures ? GmlScope::Holder : GmlScope::Outside;
    GmlOuterElement& element = outer_.emplace_back();
    element.name = name;
    element.identifier = IdentifierOf(attributes);
    element.isGml = open.isGml;
    element.holdsFeatures = holdsFeatures;
    element.firstProperty = properties_.Count();
    element.textBefore = properties_.Bytes();
    if (holdsFeatures || rules_.lineLayout) return;
    MakeRoom(name.size());
    properties_.Begin(name, attributes);
}

/// Values of the ending element can belong only to an element around it, or to none below the root.
void GmlXmlReader::EndOuterElement() {
    const GmlOuterElement& element = outer_.back();
    if (properties_.IsOpen()) {
        if (outer_.size() >= 2 && !element.isGml) outer_[outer_.size() - 2].hasOwnValue = true;
        properties_.End();
    } else if (outer_.size() == 2 && element.firstProperty < properties_.Count()) {
        properties_.KeepFirst(element.firstProperty, element.textBefore);
    }
}

void GmlXmlReader::StartInHolder(std::string_view name, XmlAttributes attributes, GmlOpenElement& open) {
    open.element = ElementOf(name, open);
    if (open.element == GmlElement::BoundedBy) return;
    if (name.ends_with("FeatureCollection")) {
        StartOuterElement(name, attributes, open);
        return;
    }
    ForgetFeature();
    BeginFeature(name, IdentifierOf(attributes));
    open.scope = GmlScope::Feature;
    if (rules_.lineLayout || !BeginsGeometry(open.element)) return;
    open.isFeature = true;
    geometry_.Start(open.element, attributes, open);
}

/// Starts the feature of a geometry outside of members; `depth` counts the elements around the geometry.
std::optional<GmlOwner> GmlXmlReader::ImplyFeature(std::size_t depth, const std::string& geometryName) {
    std::optional<GmlOwner> owner = OwnerOfGeometry(std::span(outer_).first(depth), properties_.Count());
    if (!owner) return owner;
    if (owner->isGeometryItself) {
        ForgetFeature();
        BeginFeature(geometryName, "");
        return owner;
    }
    const GmlOuterElement& element = outer_[owner->element];
    properties_.DropFirst(element.firstProperty, element.textBefore);
    BeginFeature(element.name, element.identifier);
    isImplied_ = true;
    for (std::size_t i = owner->element; i < depth; ++i) open_[i].scope = GmlScope::Property;
    open_[owner->element].scope = GmlScope::Feature;
    outer_.resize(owner->element + 1);
    return owner;
}

// --- Features and their properties

std::string GmlXmlReader::IdentifierOf(XmlAttributes attributes) const {
    std::string identifier;
    for (const auto& [key, value] : attributes)
        if (key == "fid" || (LocalName(key) == "id" && namespaces_.IsGml(key))) identifier = value;
    return identifier;
}

void GmlXmlReader::BeginFeature(std::string_view name, const std::string& identifier) {
    feature_.type = LocalName(name);
    feature_.identifier = identifier;
    osgb_ = PrefixOf(name) == "osgb";
    geometry_.BeginFeature();
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
    properties_.Forget();
    feature_.Clear();
    isImplied_ = false;
}

void GmlXmlReader::StartInFeature(std::string_view name, XmlAttributes attributes, GmlOpenElement& open) {
    properties_.Leave();
    GmlOpenElement& around = open_.back();
    if (isImplied_ && around.scope == GmlScope::Feature && HoldsFeatures(LocalName(name))) {
        EndFeature();  // the supposed feature is a collection
        around.scope = GmlScope::Outside;
        StartOuterElement(name, attributes, open);
        return;
    }
    GmlElement element = ElementOf(name, open);
    open.element = element;
    if (element == GmlElement::BoundedBy || element == GmlElement::Envelope) return;
    bool isContent = IsGeometryContent(element) && !around.isGml && !rules_.lineLayout;
    if (isContent) geometry_.BecomeGeometry(element, around);
    if (isContent || BeginsGeometry(element)) {
        geometry_.Start(element, attributes, open);
        return;
    }
    open.scope = GmlScope::Property;
    if (rules_.lineLayout && !name.starts_with("fme")) return;
    MakeRoom(name.size());
    properties_.Begin(name, attributes);
}

void GmlXmlReader::StartInGeometry(std::string_view name, XmlAttributes attributes, GmlOpenElement& open) {
    GmlOpenElement& around = open_.back();
    if (around.isSubstitute && !open.isGml) {
        StartInFeature(name, attributes, open);
        return;
    }
    GmlElement element = ElementOf(name, open);
    bool isSubstitute = around.element == GmlElement::Other && !around.isGml && !rules_.lineLayout;
    if (isSubstitute && IsGeometryContent(element)) geometry_.BecomeGeometry(element, around);
    geometry_.Start(element, attributes, open);
}

/// Outside of features the values may never be needed.
void GmlXmlReader::MakeRoom(std::size_t bytes) {
    if (properties_.HaveRoomFor(bytes)) return;
    GmlScope around = open_.empty() ? GmlScope::Outside : open_.back().scope;
    if (around != GmlScope::Outside && around != GmlScope::Holder)
        throw ReadError("", "", "a feature with more than 64 MB of properties");
    ForgetFeature();
}

}  // namespace vexlator::formats
