// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/GmlNamespaces.h"

#include "formats/gml/GmlElements.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vexlator::formats {

namespace {

constexpr std::string_view gmlNamespace = "http://www.opengis.net/gml";
constexpr std::size_t mostPrefixes = 16;

}  // namespace

void GmlNamespaces::Note(XmlAttributes attributes) {
    for (const auto& [name, uri] : attributes) {
        if (name != "xmlns" && !name.starts_with("xmlns:")) continue;
        std::string prefix(name.substr(std::min<std::size_t>(6, name.size())));
        std::erase(prefixes_, prefix);
        if (uri.starts_with(gmlNamespace) && prefixes_.size() < mostPrefixes)
            prefixes_.push_back(std::move(prefix));
    }
}

bool GmlNamespaces::IsGml(std::string_view name) const {
    std::string_view prefix = PrefixOf(name);
    return std::find(prefixes_.begin(), prefixes_.end(), prefix) != prefixes_.end();
}

}  // namespace vexlator::formats
