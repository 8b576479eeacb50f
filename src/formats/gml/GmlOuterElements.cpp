// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/GmlOuterElements.h"

#include "formats/gml/GmlElements.h"

namespace vexlator::formats {

namespace {

bool BeginsWithCapital(std::string_view name) {
    char first = name.empty() ? '\0' : name[0];
    return first >= 'A' && first <= 'Z';
}

/// After the last element that contains features.
std::size_t FirstCandidate(std::span<const GmlOuterElement> around) {
    std::size_t first = around.size();
    while (first > 0 && !around[first - 1].holdsFeatures) --first;
    return first;
}

}  // namespace

std::optional<GmlOwner> OwnerOfGeometry(std::span<const GmlOuterElement> around, std::size_t valuesRead) {
    auto owner = [&](std::size_t element) {
        return around[element].isGml ? std::nullopt : std::optional(GmlOwner{false, element});
    };
    std::size_t root = FirstCandidate(around), parent = around.size() - 1;
    if (root == around.size()) return GmlOwner{true};
    const GmlOuterElement& top = around[root];
    if (!top.IsCollection() && !top.identifier.empty() && top.hasOwnValue) return owner(root);
    for (std::size_t i = root + 1; i < around.size(); ++i)
        if (!around[i].identifier.empty()) return owner(i);
    if (around[parent].IsCollection()) return GmlOwner{true};
    if (parent == root || around[parent].firstProperty < valuesRead) return owner(parent);
    if (!around[parent - 1].IsCollection()) return owner(parent - 1);
    if (BeginsWithCapital(LocalName(around[parent].name))) return owner(parent);
    return std::nullopt;
}

}  // namespace vexlator::formats
