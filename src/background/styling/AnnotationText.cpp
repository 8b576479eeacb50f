// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/AnnotationText.h"

#include "util/Text.h"

namespace vexlator::background {

namespace {

std::string_view WithoutTrailingZeros(std::string_view value) {
    if (value.find('.') == std::string_view::npos) return value;
    return value.substr(0, value.find_last_not_of('0') + 1);
}

}  // namespace

AnnotationText::AnnotationText(std::span<const ListedName> fields) {
    for (const ListedName& field : fields)
        if (field.selected) fields_.push_back(field.name);
}

AnnotationText::Positions AnnotationText::PositionsOf(const drawing::XProperties& attributes) const {
    Positions positions;
    for (const std::string& field : fields_)
        for (std::size_t i = 0; i < attributes.count(); ++i)
            if (attributes.name(i) == field) {
                positions.push_back(i);
                break;
            }
    return positions;
}

std::string_view AnnotationText::BuildAnnotationText(const drawing::Entity& entity) {
    text_.clear();
    const Positions& positions = positions_.Of(
        entity, [&](const drawing::XProperties& attributes) { return PositionsOf(attributes); });
    if (positions.empty()) return text_;
    values_.clear();
    for (drawing::ValueCursor values = entity.xproperties().values(); !values.AtEnd();)
        values_.push_back(values.Next());
    for (std::size_t position : positions)
        text_.append(WithoutTrailingZeros(util::Trim(values_[position]))).append(1, ',');
    text_.pop_back();
    return text_;
}

}  // namespace vexlator::background
