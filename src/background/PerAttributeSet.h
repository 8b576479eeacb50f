// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <optional>
#include <vector>

namespace vexlator::background {

/// What there is to know of each sequence of attribute names, worked out when an entity first has it. For the
/// entities of one drawing: the sequences are numbered by their drawing.
template <typename T>
class PerAttributeSet {
public:
    /// `make(XProperties)` gives the T of a sequence that is new. The result is good until the next call.
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
