// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/RingMarks.h"

#include "util/Numbers.h"

#include <algorithm>

namespace vexlator::exporter {

RingMarks MarksOf(const drawing::EntityView& entity) {
    RingMarks marks;
    drawing::XPropertiesView attributes = entity.xproperties();
    if (auto surface = attributes.find(surfaceName))
        marks.surface =
            static_cast<std::uint64_t>(std::max<std::int64_t>(util::IntegerOf(surface->value()), 0));
    if (auto hole = attributes.find(holeName)) marks.isHole = util::IntegerOf(hole->value()) == 1;
    return marks;
}

bool RingSequence::Joins(const RingMarks& marks) {
    bool joins = isOpen_ && (marks.isHole ? marks.surface <= surface_
                                          : marks.surface > 1 && marks.surface == surface_ + 1);
    if (!joins || !marks.isHole) surface_ = std::max<std::uint64_t>(marks.surface, 1);
    isOpen_ = true;
    return joins;
}

}  // namespace vexlator::exporter
