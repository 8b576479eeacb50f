// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexlator::drawing {

constexpr std::int32_t textTypeCode = 1000;

struct AttributeName {
    std::string name;
    std::int32_t typeCode = textTypeCode;  ///< type of its values
};

/// A sequence of attribute names, identified by its index in a drawing's table. Equal sequences have equal
/// indices.
using AttributeSet = std::uint32_t;

/// The attribute names of a drawing, and the sequences of names of its entities. Set 0 is empty.
class AttributeNames {
public:
    using Names = std::vector<std::uint32_t>;  ///< indices of names

    AttributeNames() { Clear(); }
    void Clear();

    const std::vector<AttributeName>& All() const { return names_; }
    std::size_t SetCount() const { return sets_.size(); }
    const Names& Of(AttributeSet set) const { return sets_[set].names; }
    const AttributeName& NameAt(AttributeSet set, std::size_t index) const {
        return names_[sets_[set].names[index]];
    }

    std::uint32_t PlaceOf(std::string_view name, std::int32_t typeCode);
    AttributeSet SetOf(Names names);
    /// The set with one more name.
    AttributeSet LongerBy(AttributeSet set, std::uint32_t name);

private:
    struct Set {
        Names names;
        std::unordered_map<std::uint32_t, AttributeSet> longerBy;
    };
    std::vector<AttributeName> names_;
    std::unordered_map<std::string, std::uint32_t> placeByName_;  ///< by the type code, ":" and the name
    std::vector<Set> sets_;
    std::unordered_map<std::string, AttributeSet> setByNames_;  ///< by the bytes of Set::names
};

}  // namespace vexlator::drawing
