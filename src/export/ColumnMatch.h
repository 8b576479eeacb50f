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

/// The names that an attribute for a column may have, the column's own first.
using ColumnNames = std::vector<std::string>;

/// The name of column number `position`, which gets one of its own where the template leaves it empty.
/// Control characters, at which readers and databases stop, become "_".
std::string ColumnName(std::string_view name, std::size_t position);

/// Attributes may have the template's names, or those of an exported table that was imported again.
/// @param columns one for each field, or for the first ones, with a member `name`
template <typename Column>
std::vector<ColumnNames> NamesForAttributes(const std::vector<drawing::AtpField>& fields,
                                            const std::vector<Column>& columns) {
    std::vector<ColumnNames> names;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        names.push_back({fields[i].name, columns[i].name});
        if (!fields[i].shortName.empty()) names.back().push_back(fields[i].shortName);
    }
    return names;
}

/// A name as messages have it.
std::string ShownName(std::string_view name);

/// How attributes that are not named like their columns are listed in one line.
util::ShortList OtherNames();
/// Tells that line; nothing when the list is empty.
void ReportOtherNames(config::Run& run, std::string_view layer, const util::ShortList& places);

/// Puts the values of a layer's entities into the order of its table's columns: by their position or, with
/// [GENERICOUT] MATCHNAMES, by their names. Names are compared as templates hold them (cut, without the
/// characters of their syntax), letter case ignored; of several columns of one name each takes one value.
/// What there is to decide is decided once for each sequence of attribute names.
class ColumnMatch {
public:
    ColumnMatch(config::Run& run, std::string layer, std::vector<ColumnNames> columns);

    bool IsByName() const { return byName_; }
    /// The values, until the next call. By position: all that the entity has, be it fewer or more than there
    /// are columns. By name: one for each column, empty where the entity has none.
    std::span<const std::string_view> Row(const drawing::EntityView& entity);
    /// Tells in one line which names differ, and counts values without a column in the session's losses. To
    /// be called once, behind the last row.
    void Report();

private:
    /// Where an attribute goes.
    struct Place {
        std::size_t column;
        std::uint64_t* lost;  ///< the count of its values, when the column does not exist
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
    std::unordered_map<std::string, std::vector<std::size_t>> named_;  ///< columns by their names' keys
    std::unordered_map<drawing::AttributeSet, Places> known_;
    drawing::AttributeSet lastSet_ = 0;
    const Places* last_ = nullptr;  ///< those of lastSet_
    std::unordered_map<std::string, std::uint64_t> lost_;
    util::ShortList others_;
    std::vector<std::string_view> row_;
};

}  // namespace vexlator::exporter
