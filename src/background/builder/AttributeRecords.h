// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/builder/AttributeList.h"
#include "background/package/PackageWriter.h"
#include "drawing/Drawing.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexlator::background {

/// The records of a drawing's features in the layer file of a package, and their values in the gazetteer.
class AttributeRecords {
public:
    /// @param searchField name of the attribute for the gazetteer; "" for none
    AttributeRecords(const AttributeList& list, std::string_view searchField, PackageWriter& writer)
        : list_(list), searchField_(searchField), writer_(writer) {}

    /// Writes a record for every entity of the chunk with attributes. Entities of a listed layer have the
    /// values of the layer's fields, all others have every attribute with its name.
    void Write(drawing::Drawing& chunk);
    /// Adds the value of an entity to the gazetteer, unless the entity is outside the tiles of a package.
    void AddToSearch(const drawing::Entity& entity);
    /// The number of the record of an entity of that chunk; 0 if it has none.
    std::int32_t NumberOf(const drawing::Entity& entity) const {
        return entity.index() < numbers_.size() ? numbers_[entity.index()] : 0;
    }

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    /// Positions of the relevant attributes among those of an entity.
    struct Columns {
        std::vector<std::size_t> fields;  ///< positions of the listed layer's fields that the entity has
        std::size_t search = none;
    };

    std::optional<std::int32_t> WriteRecord(const drawing::Entity& entity);
    const AttributeList::Group* GroupOf(const std::string& layer);
    const Columns& ColumnsOf(const drawing::Entity& entity, const AttributeList::Group* group);
    std::optional<std::int32_t> WriteListed(const AttributeList::Group& group, const Columns& columns);
    std::optional<std::int32_t> WriteFree(const drawing::Entity& entity);

    const AttributeList& list_;
    std::string searchField_;
    PackageWriter& writer_;
    std::vector<std::int32_t> numbers_;
    std::unordered_map<const std::string*, const AttributeList::Group*> groupOfLayer_;
    std::unordered_map<drawing::AttributeSet, std::unordered_map<const AttributeList::Group*, Columns>>
        columns_;
    std::vector<std::string_view> values_, listed_;
    std::vector<FreeAttribute> free_;
};

}  // namespace vexlator::background
