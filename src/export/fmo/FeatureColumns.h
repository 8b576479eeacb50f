// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/FmoDefinition.h"
#include "drawing/AttributeTemplate.h"
#include "drawing/Drawing.h"
#include "util/ShortList.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexlator::exporter {

/// The columns that a layer's attributes go to: the key, then one for each other field of its template, then
/// one for each attribute that the template lacks.
///
/// A column takes the attribute of its name, letter case ignored. An attribute whose name is no column's goes
/// to the field at its position, unless that has an attribute of its own or `byName` is set; else to a column
/// of its own. Where no field is named like the key column, the first field stands for it.
class FeatureColumns {
public:
    FeatureColumns(const database::FmoDefinition& definition, const std::vector<drawing::AtpField>& fields,
                   const drawing::SelectionSet& set, bool byName);

    /// Names; the first is the key column's.
    const std::vector<std::string>& Names() const { return names_; }

    /// Whether any entity has an attribute for the column.
    bool HasSource(std::size_t column) const;

    /// For people: where attributes went for which there was no column.
    const util::ShortList& Others() const { return others_; }

    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    /// For each column the position of the entity's attribute that goes there, or `none`.
    const std::vector<std::size_t>& SourcesFor(const drawing::EntityView& entity) const {
        return sources_.at(entity.attributeSet());
    }

    /// An attribute without a column: it is named like one that holds the place, or like an attribute before
    /// it, its `twin`.
    struct LeftOver {
        std::size_t attribute, twin;  ///< twin: none when it is named like the place
    };
    const std::vector<LeftOver>& LeftOversOf(const drawing::EntityView& entity) const {
        return leftOvers_.at(entity.attributeSet());
    }

private:
    std::size_t Find(std::string_view name) const;
    std::size_t Add(const std::string& name);
    std::size_t FieldColumn(std::string_view name, std::size_t position) const;
    std::size_t AddFree(std::string_view name, const std::vector<std::size_t>& sources);
    bool IsPlace(std::string_view name) const;
    void AddFields(const std::vector<drawing::AtpField>& fields);
    std::vector<std::size_t> MapAttributes(const drawing::XPropertiesView& attributes,
                                           std::vector<LeftOver>& leftOvers);

    const database::FmoDefinition& definition_;
    bool byName_;
    std::string keyField_;  ///< name of the field that stands for the key; empty: that has the key's own name
    std::vector<std::string> names_;
    std::vector<std::size_t> fieldColumns_;  ///< column of each template field; none for coordinates
    std::unordered_map<drawing::AttributeSet, std::vector<std::size_t>> sources_;
    std::unordered_map<drawing::AttributeSet, std::vector<LeftOver>> leftOvers_;
    util::ShortList others_;
};

}  // namespace vexlator::exporter
