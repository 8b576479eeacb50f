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

/// Builds the annotation of the entities of one drawing, at the cost of one walk over their values.
class AnnotationText {
public:
    /// Of the fields, the selected ones count. Their names are compared as attribute names are, letter case
    /// included.
    explicit AnnotationText(std::span<const ListedName> fields);

    /// The entity's values of the fields, in the order of the fields: each without the blanks around it and,
    /// when it contains ".", without the zeros at its end; commas between. Fields that the entity lacks add
    /// nothing. Good until the next call.
    std::string_view BuildAnnotationText(const drawing::Entity& entity);

private:
    using Positions = std::vector<std::size_t>;
    Positions PositionsOf(const drawing::XProperties& attributes) const;

    std::vector<std::string> fields_;
    PerAttributeSet<Positions> positions_;  ///< where the fields stand, those that are lacking left out
    std::vector<std::string_view> values_;
    std::string text_;
};

/// Calls `visit(line, index)` for every line of an annotation text, which are separated by ",": a value that
/// contains one makes two lines. An empty text has none.
template <typename Visit>
void ForEachAnnotationLine(std::string_view text, Visit visit) {
    for (std::size_t index = 0, begin = 0; !text.empty() && begin <= text.size(); ++index) {
        std::size_t end = std::min(text.find(',', begin), text.size());
        visit(text.substr(begin, end - begin), index);
        begin = end + 1;
    }
}

}  // namespace vexlator::background
