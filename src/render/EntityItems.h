// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "render/Scene.h"
#include "render/SymbolScenes.h"

#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace vexlator::render {

/// Converts the entities of one drawing, all at once or chunk by chunk, to items of a scene.
class EntityItems {
public:
    EntityItems(SceneBuilder& builder, SymbolScenes& symbols, int depth)
        : builder_(builder), symbols_(symbols), depth_(depth) {}

    /// Sets the drawing's layers; only those with `isShown` count. Call it before the first entity.
    void AddLayers(const drawing::Drawing& drawing, const std::vector<bool>& isShown);
    /// Adds the entities now in the drawing. Layers, styles and attribute names keep their numbers between
    /// calls.
    void Add(drawing::Drawing& drawing);

private:
    void AddEntity(const drawing::Entity& entity, const drawing::Drawing& owner);
    void AddPolyline(const drawing::Entity& entity);
    void AddText(const drawing::Entity& entity);
    void AddInsert(const drawing::Entity& insert, const drawing::Drawing& owner);
    /// The pen of an entity, filled or not.
    std::uint32_t PenOf(const drawing::Style& style, bool isFilled);
    std::optional<std::uint32_t> SymbolNumber(const std::string& name, const drawing::Drawing& owner);
    bool IsHole(const drawing::Entity& entity);

    SceneBuilder& builder_;
    SymbolScenes& symbols_;
    std::uint32_t next_ = 0;                            ///< number of entities so far
    int depth_;                                         ///< of the symbol being converted; 0: none
    std::vector<std::optional<std::uint32_t>> layers_;  ///< by number in the drawing
    std::uint32_t layer_ = 0;                           ///< of the current entity
    /// Styles are interned in their drawing, so their addresses identify them.
    std::array<std::unordered_map<const drawing::Style*, std::uint32_t>, 2> pens_;
    std::unordered_map<std::string, std::optional<std::uint32_t>> symbolNumbers_;
    std::vector<std::optional<bool>> hasHoleName_;  ///< by attribute set
};

}  // namespace vexlator::render
