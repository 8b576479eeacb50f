// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/fmo/FeatureColumns.h"

#include "export/ColumnMatch.h"
#include "platform/AsciiCase.h"

#include <algorithm>

namespace vexlator::exporter {

using platform::SameNoCase;

FeatureColumns::FeatureColumns(const database::FmoDefinition& definition,
                               const std::vector<drawing::AtpField>& fields, const drawing::SelectionSet& set,
                               bool byName)
    : definition_(definition), byName_(byName), names_{definition.key}, others_(OtherNames()) {
    AddFields(fields);
    for (std::uint32_t index : set.indexes()) {
        drawing::EntityView entity = set.entity(index);
        drawing::AttributeSet attributes = entity.attributeSet();
        if (!sources_.contains(attributes))
            sources_.emplace(attributes, MapAttributes(entity.xproperties(), leftOvers_[attributes]));
    }
    for (auto& [attributes, sources] : sources_) sources.resize(names_.size(), none);
}

bool FeatureColumns::HasSource(std::size_t column) const {
    return std::ranges::any_of(sources_, [&](const auto& known) { return known.second[column] != none; });
}

std::size_t FeatureColumns::Find(std::string_view name) const {
    auto found = std::ranges::find_if(names_, [&](const std::string& n) { return SameNoCase(n, name); });
    return found == names_.end() ? none : static_cast<std::size_t>(found - names_.begin());
}

std::size_t FeatureColumns::Add(const std::string& name) {
    std::size_t column = Find(name);
    if (column != none) return column;
    names_.push_back(name);
    return names_.size() - 1;
}

/// Whether a column holds the position, which no attribute may overwrite.
bool FeatureColumns::IsPlace(std::string_view name) const {
    if (definition_.IsLineTable()) return SameNoCase(name, definition_.geometryColumn);
    return SameNoCase(name, definition_.east) || SameNoCase(name, definition_.north);
}

void FeatureColumns::AddFields(const std::vector<drawing::AtpField>& fields) {
    bool hasKey = std::ranges::any_of(
        fields, [&](const drawing::AtpField& field) { return SameNoCase(field.name, definition_.key); });
    if (!hasKey && !fields.empty()) keyField_ = ColumnName(fields[0].name, 0);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        std::string name = ColumnName(fields[i].name, i);
        if (i == 0 && !hasKey)
            fieldColumns_.push_back(0);
        else
            fieldColumns_.push_back(IsPlace(name) ? none : Add(name));
    }
}

/// The column of the field that an attribute with another name belongs to; none if there is none.
std::size_t FeatureColumns::FieldColumn(std::string_view name, std::size_t position) const {
    if (byName_) return !keyField_.empty() && SameNoCase(name, keyField_) ? 0 : none;
    return position < fieldColumns_.size() ? fieldColumns_[position] : none;
}

std::vector<std::size_t> FeatureColumns::MapAttributes(const drawing::XPropertiesView& attributes,
                                                       std::vector<LeftOver>& leftOvers) {
    std::vector<std::size_t> sources(names_.size(), none), unnamed;
    for (std::size_t i = 0; i < attributes.count(); ++i) {
        std::string name = ColumnName(attributes.name(i), i);
        std::size_t column = Find(name);
        if (column != none && sources[column] == none)
            sources[column] = i;
        else if (column == none ? IsPlace(name) : attributes.name(sources[column]) == attributes.name(i))
            leftOvers.push_back({i, column == none ? none : sources[column]});
        else
            unnamed.push_back(i);
    }
    for (std::size_t i : unnamed) {
        std::string name = ColumnName(attributes.name(i), i);
        std::size_t column = FieldColumn(name, i);
        if (column == none || sources[column] != none) column = AddFree(name, sources);
        if (!SameNoCase(name, column == 0 && !keyField_.empty() ? keyField_ : names_[column]))
            others_.Add(util::ShortList::Shortened(name) + " in " +
                        util::ShortList::Shortened(names_[column]));
        sources.resize(names_.size(), none);
        sources[column] = i;
    }
    return sources;
}

/// The column with a name, or with that name and a number if an attribute with another letter case has it.
std::size_t FeatureColumns::AddFree(std::string_view name, const std::vector<std::size_t>& sources) {
    std::string candidate(name);
    std::size_t column = Add(candidate);
    for (int n = 1; column < sources.size() && sources[column] != none; ++n)
        column = Add(candidate = std::string(name) + std::to_string(n));
    return column;
}

}  // namespace vexlator::exporter
