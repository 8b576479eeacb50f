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

/// The columns for a layer's attributes: the key, then one for each other field of its template, then one for
/// each attribute that is not in the template.
///
/// A column takes the attribute with its name, in any letter case. An attribute without a column of its name
/// goes to the field at its position, unless the field has its own attribute or `byName` is set. Then it gets
/// a new column. If no field has the name of the key column, the first field is the key.
class FeatureColumns {
public:
    FeatureColumns(const database::FmoDefinition& definition, const std::vector<drawing::AtpField>& fields,
                   const drawing::SelectionSet& set, bool byName);

    /// Names; the first is the key column's.
    const std::vector<std::string>& Names() const { return names_; }

    /// Whether any entity has an attribute for the column.
    bool HasSource(std::size_t column) const;

    /// For the user: where attributes without a column went.
    const util::ShortList& Others() const { return others_; }

    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    /// For each column the index of the entity's attribute for it, or `none`.
    const std::vector<std::size_t>& SourcesFor(const drawing::EntityView& entity) const {
        return sources_.at(entity.attributeSet());
    }

    /// An attribute without a column. It has the name of a position column, or of an earlier attribute, its
    /// `twin`.
    struct LeftOver {
        std::size_t attribute, twin;  ///< twin: none if it has the name of a position column
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
    std::string keyField_;  ///< name of the key field; empty: it has the key column's name
    std::vector<std::string> names_;
    std::vector<std::size_t> fieldColumns_;  ///< column of each template field; none for coordinates
    std::unordered_map<drawing::AttributeSet, std::vector<std::size_t>> sources_;
    std::unordered_map<drawing::AttributeSet, std::vector<LeftOver>> leftOvers_;
    util::ShortList others_;
};

}  // namespace vexlator::exporter
