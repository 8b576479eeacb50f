// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/DrawingTools.h"

#include "background/PerAttributeSet.h"
#include "util/NoCaseMap.h"

#include <optional>
#include <unordered_set>

namespace vexlator::background {

namespace {

constexpr double metresPerFoot = 0.3048;

/// The number of attributes before the one with this name; none if there is no such attribute.
std::optional<std::size_t> PositionOf(std::string_view name, const drawing::XProperties& attributes) {
    for (std::size_t i = 0; i < attributes.count(); ++i)
        if (attributes.name(i) == name) return i;
    return std::nullopt;
}

}  // namespace

void RelayerByAttribute(std::string_view fieldName, drawing::Drawing& drawing) {
    PerAttributeSet<std::optional<std::size_t>> positions;
    drawing.forEach([&](drawing::Entity entity) {
        const std::optional<std::size_t>& position =
            positions.Of(entity, [&](const auto& attributes) { return PositionOf(fieldName, attributes); });
        if (!position) return;
        drawing::ValueCursor values = entity.xproperties().values();
        for (std::size_t i = 0; i < *position; ++i) values.Next();
        entity.setLayerName(values.Next());
    });
}

void ScaleFeetToMetres(drawing::Drawing& drawing) {
    drawing.scale(metresPerFoot);
}

void MoveDrawing(drawing::Drawing& drawing, drawing::PlanePoint from, drawing::PlanePoint to) {
    drawing.forEach([&](drawing::Entity entity) {
        for (std::size_t i = 0; i < entity.vertexCount(); ++i) {
            drawing::Point vertex = entity.vertex(i);
            entity.setVertex(i, {vertex.x + (to.x - from.x), vertex.y + (to.y - from.y), vertex.z});
        }
    });
}

std::vector<std::string> AttributeNames(drawing::Drawing& drawing) {
    std::vector<std::string> names;
    std::unordered_set<std::string> known;
    PerAttributeSet<bool> seen;
    drawing.forEach([&](drawing::Entity entity) {
        seen.Of(entity, [&](const drawing::XProperties& attributes) {
            for (std::size_t i = 0; i < attributes.count(); ++i) {
                std::string name(attributes.name(i));
                if (known.insert(name).second) names.push_back(std::move(name));
            }
            return true;
        });
    });
    return names;
}

std::vector<std::string> LayerNames(const drawing::Drawing& drawing) {
    std::vector<std::string> names;
    for (const drawing::Layer& layer : drawing.layers()) names.push_back(layer.name);
    return names;
}

void AddMissingLayers(std::vector<StyleRow>& rows, std::span<const std::string> layers) {
    util::NoCaseMap<bool> known;
    for (const StyleRow& row : rows) known.emplace(row.layer, true);
    std::vector<StyleRow> missing;
    for (const std::string& layer : layers)
        if (CanStandInStyle(layer) && known.emplace(layer, true).second)
            missing.push_back(StyleRow{layer, "", "", ""});
    rows.insert(rows.end(), missing.begin(), missing.end());
}

}  // namespace vexlator::background
