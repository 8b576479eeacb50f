// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/GmlReference.h"

#include "formats/gml/GmlElements.h"
#include "util/Text.h"

namespace vexlator::formats {

std::uint8_t GmlDimension(std::string_view text) {
    text = util::Trim(text, util::lineBlanks);
    bool isKnown = text == "2" || text == "3" || text == "4";
    return isKnown ? static_cast<std::uint8_t>(text[0] - '0') : 0;
}

void GmlReferences::Read(XmlAttributes attributes, GmlReference& reference) {
    std::string_view name, dimension;
    for (const XmlAttribute& attribute : attributes) {
        if (attribute.name == "srsName") name = util::Trim(attribute.value, util::lineBlanks);
        if (attribute.name == "srsDimension") dimension = attribute.value;
    }
    if (!name.empty()) UseSystem(name, reference);
    if (dimension.empty()) return;
    reference.dimension = GmlDimension(dimension);
    reference.isGiven = true;
}

/// The dimension around elements of one system does not apply to elements of another.
void GmlReferences::UseSystem(std::string_view name, GmlReference& reference) {
    if (firstName_.empty()) firstName_ = name;
    if (name != lastName_) {
        last_ = Find(name);
        lastName_ = name;
    }
    if (last_.number == reference.name) return;
    bool replaces = reference.name != 0 || !reference.isGiven;
    reference.name = last_.number;
    if (last_.dimension == 0 || !replaces) return;
    reference.dimension = last_.dimension;
    reference.isGiven = false;
}

GmlReferences::System GmlReferences::Find(std::string_view name) {
    // A file has a handful. Looking up all names of a hostile file would take hours.
    constexpr std::size_t mostSystems = 256;
    auto found = systems_.find(name);
    if (found != systems_.end()) return found->second;
    if (systems_.size() == mostSystems) return {};
    std::size_t axes = axisCount_ ? axisCount_(name).value_or(0) : 0;
    System system{static_cast<std::uint16_t>(systems_.size() + 1),
                  static_cast<std::uint8_t>(axes <= 4 ? axes : 0)};
    return systems_.emplace(name, system).first->second;
}

}  // namespace vexlator::formats
