// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <cstdint>
#include <string_view>

namespace vexlator::exporter {

/// The names by which imports mark the rings of a feature: the number of its surface, from 1, when it has
/// several, and 1 for a hole.
constexpr std::string_view surfaceName = "MPOLY", holeName = "ISHOLE";

/// How a ring belongs to a feature.
struct RingMarks {
    std::uint64_t surface = 0;  ///< 0: its feature has a single one
    bool isHole = false;
};
RingMarks MarksOf(const drawing::EntityView& entity);

/// Follows the rings of a layer, in drawing order.
class RingSequence {
public:
    /// Whether the ring belongs to the feature of the ring before it.
    bool Joins(const RingMarks& marks);
    /// Something else than a ring comes.
    void End() { isOpen_ = false; }

private:
    bool isOpen_ = false;
    std::uint64_t surface_ = 0;  ///< of the last ring
};

}  // namespace vexlator::exporter
