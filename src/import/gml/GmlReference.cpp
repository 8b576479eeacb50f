// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/gml/GmlReference.h"

#include "coords/AxisCount.h"
#include "import/gml/GmlElements.h"

namespace vexlator::importer {

std::size_t GmlDimension(std::string_view text) {
    text = TrimmedXml(text);
    bool isKnown = text == "2" || text == "3" || text == "4";
    return isKnown ? static_cast<std::size_t>(text[0] - '0') : 0;
}

void GmlReferences::Read(XmlAttributes attributes, GmlReference& reference) {
    for (const auto& [name, value] : attributes)
        if (name == "srsName" && !TrimmedXml(value).empty()) UseSystem(TrimmedXml(value), reference);
    for (const auto& [name, value] : attributes) {
        if (name != "srsDimension") continue;
        reference.dimension = GmlDimension(value);
        reference.isGiven = true;
    }
}

/// A dimension that is told around elements of one system does not hold for those of another.
void GmlReferences::UseSystem(std::string_view name, GmlReference& reference) {
    if (firstName_.empty()) firstName_ = name;
    const System& system = Find(name);
    if (system.number == reference.name) return;
    bool replaces = reference.name != 0 || !reference.isGiven;
    reference.name = system.number;
    if (!system.dimension || !replaces) return;
    reference.dimension = *system.dimension;
    reference.isGiven = false;
}

const GmlReferences::System& GmlReferences::Find(std::string_view name) {
    // A file has a handful; looking up those of a hostile one would take hours.
    constexpr std::size_t mostSystems = 256;
    static const System unknown{0, std::nullopt};
    auto found = systems_.find(name);
    if (found != systems_.end()) return found->second;
    if (systems_.size() == mostSystems) return unknown;
    System system{systems_.size() + 1, coords::AxisCount(name)};
    if (system.dimension > 4) system.dimension.reset();
    return systems_.emplace(name, system).first->second;
}

}  // namespace vexlator::importer
