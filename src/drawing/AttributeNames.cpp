// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/AttributeNames.h"

namespace vexlator::drawing {

void AttributeNames::Clear() {
    names_.clear();
    placeByName_.clear();
    sets_.assign(1, Set{});
    setByNames_.clear();
}

std::uint32_t AttributeNames::PlaceOf(std::string_view name, std::int32_t typeCode) {
    std::string key = std::to_string(typeCode) + ":" + std::string(name);
    auto [place, isNew] = placeByName_.try_emplace(std::move(key), static_cast<std::uint32_t>(names_.size()));
    if (isNew) names_.push_back({std::string(name), typeCode});
    return place->second;
}

AttributeSet AttributeNames::SetOf(Names names) {
    if (names.empty()) return 0;
    std::string key(reinterpret_cast<const char*>(names.data()), names.size() * sizeof(names[0]));
    auto [place, isNew] = setByNames_.try_emplace(std::move(key), static_cast<AttributeSet>(sets_.size()));
    if (isNew) sets_.push_back({std::move(names), {}});
    return place->second;
}

AttributeSet AttributeNames::LongerBy(AttributeSet set, std::uint32_t name) {
    auto found = sets_[set].longerBy.find(name);
    if (found != sets_[set].longerBy.end()) return found->second;
    Names names = sets_[set].names;
    names.push_back(name);
    AttributeSet longer = SetOf(std::move(names));
    sets_[set].longerBy.emplace(name, longer);
    return longer;
}

}  // namespace vexlator::drawing
