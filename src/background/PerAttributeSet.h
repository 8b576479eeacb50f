// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <optional>
#include <vector>

namespace vexlator::background {

/// Data of each sequence of attribute names, computed when an entity first has it. For the entities of one
/// drawing, because its drawing numbers the sequences.
template <typename T>
class PerAttributeSet {
public:
    /// `make(XProperties)` computes the T of a new sequence. The result is valid until the next call.
    template <typename Make>
    const T& Of(const drawing::Entity& entity, Make make) {
        drawing::AttributeSet set = entity.attributeSet();
        if (set >= known_.size()) known_.resize(set + 1);
        if (!known_[set]) known_[set] = make(entity.xproperties());
        return *known_[set];
    }

private:
    std::vector<std::optional<T>> known_;
};

}  // namespace vexlator::background
