// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/PerAttributeSet.h"
#include "background/styling/modGRPstyling.h"
#include "drawing/Drawing.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::background {

/// Builds the annotation of the entities of one drawing, in one pass over their values.
class AnnotationText {
public:
    /// Only the selected fields count. Their names are compared like attribute names, with letter case.
    explicit AnnotationText(std::span<const ListedName> fields);

    /// The entity's values of the fields, in the order of the fields, separated by commas. Blanks around a
    /// value are removed, and trailing zeros too if it contains ".". Fields that the entity lacks add
    /// nothing. Valid until the next call.
    std::string_view BuildAnnotationText(const drawing::Entity& entity);

private:
    using Positions = std::vector<std::size_t>;
    Positions PositionsOf(const drawing::XProperties& attributes) const;

    std::vector<std::string> fields_;
    PerAttributeSet<Positions> positions_;  ///< positions of the fields, without missing ones
    std::vector<std::string_view> values_;
    std::string text_;
};

/// Calls `visit(line, index)` for every line of an annotation text. Commas separate lines, so a value with a
/// comma makes two lines. An empty text has none.
template <typename Visit>
void ForEachAnnotationLine(std::string_view text, Visit visit) {
    for (std::size_t index = 0, begin = 0; !text.empty() && begin <= text.size(); ++index) {
        std::size_t end = std::min(text.find(',', begin), text.size());
        visit(text.substr(begin, end - begin), index);
        begin = end + 1;
    }
}

}  // namespace vexlator::background
