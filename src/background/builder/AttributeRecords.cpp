// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/AttributeRecords.h"

#include "background/package/TileGrid.h"

#include <cmath>

namespace vexlator::background {

namespace {

/// Nothing for an entity without a position, because its square would extend to the origin, or outside the
/// tiles of a package.
std::optional<Box> BoxOf(const drawing::Entity& entity, double tileSize) {
    drawing::Box extents = entity.extents();
    bool isFinite = std::isfinite(extents.minX + extents.minY + extents.maxX + extents.maxY);
    if (entity.vertexCount() == 0 || !isFinite || extents.minX < 0 || extents.minY < 0) return std::nullopt;
    Box box{extents.minX, extents.minY, extents.maxX, extents.maxY};
    if (!TileNumber(TileSizeFor(tileSize, box.Size()), {box.maxX, box.maxY})) return std::nullopt;
    return box;
}

}  // namespace

void AttributeRecords::Write(drawing::Drawing& chunk) {
    numbers_.assign(chunk.entityCount(), 0);
    chunk.forEach([&](drawing::Entity entity) {
        if (entity.xproperties().count() == 0) return;
        if (auto number = WriteRecord(entity)) numbers_[entity.index()] = *number;
    });
}

std::optional<std::int32_t> AttributeRecords::WriteRecord(const drawing::Entity& entity) {
    const AttributeList::Group* group = GroupOf(entity.layerName());
    const Columns& columns = ColumnsOf(entity, group);
    values_.clear();
    for (drawing::ValueCursor values = entity.xproperties().values(); !values.AtEnd();)
        values_.push_back(values.Next());
    return group ? WriteListed(*group, columns) : WriteFree(entity);
}

void AttributeRecords::AddToSearch(const drawing::Entity& entity) {
    if (searchField_.empty() || entity.xproperties().count() == 0) return;
    std::size_t column = ColumnsOf(entity, GroupOf(entity.layerName())).search;
    if (column == none) return;
    drawing::XProperty property = entity.xproperties().item(column);
    std::string_view value = property.value();
    if (value.empty()) return;
    if (auto box = BoxOf(entity, writer_.DefaultTileSize())) writer_.Search().Add(value, *box);
}

const AttributeList::Group* AttributeRecords::GroupOf(const std::string& layer) {
    auto [known, isNew] = groupOfLayer_.try_emplace(&layer);
    if (isNew) known->second = list_.Find(layer);
    return known->second;
}

const AttributeRecords::Columns& AttributeRecords::ColumnsOf(const drawing::Entity& entity,
                                                             const AttributeList::Group* group) {
    auto [known, isNew] = columns_[entity.attributeSet()].try_emplace(group);
    if (!isNew) return known->second;
    drawing::XProperties attributes = entity.xproperties();
    auto columnOf = [&](std::string_view name) {
        for (std::size_t i = 0; i < attributes.count(); ++i)
            if (attributes.name(i) == name) return i;
        return none;
    };
    Columns& columns = known->second;
    if (!searchField_.empty()) columns.search = columnOf(searchField_);
    if (group)
        for (const std::string& field : group->fields)
            if (std::size_t column = columnOf(field); column != none) columns.fields.push_back(column);
    return columns;
}

std::optional<std::int32_t> AttributeRecords::WriteListed(const AttributeList::Group& group,
                                                          const Columns& columns) {
    listed_.clear();
    for (std::size_t column : columns.fields) listed_.push_back(values_[column]);
    return writer_.Layers().AddListed(group.record, listed_);
}

std::optional<std::int32_t> AttributeRecords::WriteFree(const drawing::Entity& entity) {
    drawing::XProperties attributes = entity.xproperties();
    free_.clear();
    for (std::size_t i = 0; i < values_.size(); ++i)
        free_.push_back({attributes.name(i), values_[i], attributes.typeCode(i)});
    return writer_.Layers().AddFree(free_);
}

}  // namespace vexlator::background
