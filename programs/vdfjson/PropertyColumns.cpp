// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfjson/PropertyColumns.h"

#include "platform/Errors.h"
#include "util/Numbers.h"

#include <algorithm>

namespace vexlator::vdfjson {

const std::vector<std::size_t>& PropertyColumns::Layer::PlacesOf(const std::vector<std::string_view>& names) {
    ++features_;
    values_ += names.size();
    places_.clear();
    for (std::string_view name : names) {
        std::size_t place = PlaceOf(name, places_.empty() ? 0 : places_.back() + 1);
        takenBy_[place] = features_;
        isUniform_ = isUniform_ && place == places_.size();
        places_.push_back(place);
    }
    isUniform_ = isUniform_ && places_.size() == names_.size();
    return places_;
}

/// Most features have their properties in the same order, so the next position is expected.
std::size_t PropertyColumns::Layer::PlaceOf(std::string_view name, std::size_t expected) {
    if (!hasRepeats_ && expected < names_.size() && names_[expected] == name &&
        takenBy_[expected] != features_)
        return expected;
    std::vector<std::size_t>& same = byName_[std::string(name)];
    for (std::size_t place : same)
        if (takenBy_[place] != features_) return place;
    hasRepeats_ = hasRepeats_ || !same.empty();
    isUniform_ = isUniform_ && features_ == 1;
    same.push_back(names_.size());
    names_.emplace_back(name);
    takenBy_.push_back(0);
    return same.back();
}

bool PropertyColumns::AreUniform() const {
    return std::ranges::all_of(layers_, [](const auto& each) { return each.second.isUniform_; });
}

void PropertyColumns::Settle(std::uint64_t documentBytes) {
    areSettled_ = true;
    constexpr std::uint64_t mostPerByte = 16;
    std::uint64_t missing = 0;
    for (const auto& [name, layer] : layers_) {
        missing += layer.features_ * layer.names_.size() - layer.values_;
        if (missing / mostPerByte > documentBytes)
            throw platform::ReadError("", "",
                                      "the features of layer \"" + name + "\" have " +
                                          util::GroupedCount(layer.names_.size()) +
                                          " different properties, too many for each to get all");
    }
}

}  // namespace vexlator::vdfjson
