// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <string_view>
#include <vector>

namespace vexlator::drawing {

/// Collects the attribute names of an entity. Most entities have the same names as the one before, which are
/// not looked up again.
class EntityNames {
public:
    explicit EntityNames(Drawing& drawing) : drawing_(drawing) {}

    void Start() { count_ = 0; }
    void Add(std::string_view name, std::int32_t typeCode = textTypeCode) {
        if (count_ < names_.size() && names_[count_].name == name && names_[count_].typeCode == typeCode) {
            ++count_;
            return;
        }
        names_.resize(count_);
        names_.push_back({std::string(name), typeCode});
        ++count_;
        isKnown_ = false;
    }
    std::size_t Count() const { return count_; }

    /// Gives the names to the last added entity. Its values follow with Drawing::appendValue().
    void BeginValues() {
        if (!isKnown_ || names_.size() != count_) {
            names_.resize(count_);
            set_ = drawing_.attributeSet(names_);
            isKnown_ = true;
        }
        drawing_.beginValues(set_);
    }

private:
    Drawing& drawing_;
    std::vector<AttributeName> names_;  ///< names of this entity, or of the one before as far as they agree
    std::size_t count_ = 0;
    AttributeSet set_ = 0;
    bool isKnown_ = false;  ///< set_ is valid for names_
};

}  // namespace vexlator::drawing
