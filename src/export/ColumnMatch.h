// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/AttributeTemplate.h"
#include "drawing/Drawing.h"
#include "util/ShortList.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexlator::exporter {

/// The possible names of an attribute for a column, the column's own first.
using ColumnNames = std::vector<std::string>;

/// The name of column number `position`. A column without a name in the template gets a generated one.
/// Control characters, at which readers and databases stop, become "_".
std::string ColumnName(std::string_view name, std::size_t position);

/// Attributes can have the template's names, or those of an exported table that was imported again.
/// @param columns one for each field, or for the first fields, with a member `name`; further ones are ignored
template <typename Column>
std::vector<ColumnNames> NamesForAttributes(const std::vector<drawing::AtpField>& fields,
                                            const std::vector<Column>& columns) {
    std::vector<ColumnNames> names;
    for (std::size_t i = 0; i < columns.size() && i < fields.size(); ++i) {
        names.push_back({fields[i].name, columns[i].name});
        if (!fields[i].shortName.empty()) names.back().push_back(fields[i].shortName);
    }
    return names;
}

/// Attributes have the names of their columns.
std::vector<ColumnNames> NamesForAttributes(const std::vector<std::string>& columns);

/// The form of a name in messages.
std::string ShownName(std::string_view name);

/// Lists attributes whose names differ from their columns', in one line.
util::ShortList OtherNames();
/// Shows that line; nothing for an empty list.
void ReportOtherNames(config::Run& run, std::string_view layer, const util::ShortList& places);

/// Puts the values of a layer's entities into the order of its table's columns: by position or, with
/// [GENERICOUT] MATCHNAMES, by name. Names are compared in their template form (cut, without syntax
/// characters) and without regard to letter case. If several columns have the same name, each takes one
/// value. The mapping is computed once for each sequence of attribute names.
class ColumnMatch {
public:
    ColumnMatch(config::Run& run, std::string layer, std::vector<ColumnNames> columns);
    /// By name whatever the setting says: for formats whose values carry their names.
    static ColumnMatch ByName(config::Run& run, std::string layer, std::vector<ColumnNames> columns);

    bool IsByName() const { return byName_; }
    /// The values, valid until the next call. By position: all values of the entity, also if fewer or more
    /// than the columns. By name: one per column, empty if the entity has none.
    std::span<const std::string_view> Row(const drawing::EntityView& entity);
    /// Reports differing names in one line, and adds values without a column to the run's losses. Call it
    /// once, after the last row.
    void Report();

private:
    ColumnMatch(config::Run& run, std::string layer, std::vector<ColumnNames> columns, bool byName);

    /// The target of an attribute.
    struct Place {
        std::size_t column;
        std::uint64_t* lost;  ///< counter of its values, if there is no column
    };
    using Places = std::vector<Place>;

    const Places& PlacesFor(const drawing::EntityView& entity);
    Places Match(const drawing::XPropertiesView& attributes);
    std::span<const std::size_t> Named(std::string_view name) const;
    std::size_t FreeColumn(std::string_view name, std::vector<bool>& taken) const;
    void NoteOther(std::string_view name, std::size_t column);

    config::Run& run_;
    std::string layer_;
    std::vector<ColumnNames> columns_;
    bool byName_;
    std::unordered_map<std::string, std::vector<std::size_t>> named_;  ///< columns by the keys of their names
    std::unordered_map<drawing::AttributeSet, Places> known_;
    drawing::AttributeSet lastSet_ = 0;
    const Places* last_ = nullptr;  ///< targets for lastSet_
    std::unordered_map<std::string, std::uint64_t> lost_;
    util::ShortList others_;
    std::vector<std::string_view> row_;
};

}  // namespace vexlator::exporter
