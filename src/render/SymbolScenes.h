// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "render/DrawingScene.h"
#include "render/Scene.h"

#include <memory>
#include <string_view>
#include <unordered_map>

namespace vexlator::render {

/// What the blocks of a drawing draw, each unpacked when it is first needed.
class SymbolScenes {
public:
    SymbolScenes(const drawing::Drawing& drawing, const SceneOptions& options)
        : drawing_(drawing), options_(options) {}

    /// Symbols in symbols are followed so deep, and a symbol has at most so many items, those of the symbols
    /// in it counted as often as they stand there. What is beyond is a dot.
    static constexpr int deepest = 16;
    static constexpr std::uint64_t mostItems = 200'000;

    /// What a block draws that `owner`, the drawing or a symbol in it, names; null when that is nothing.
    std::shared_ptr<const Scene> Of(std::string_view blockName, const drawing::Drawing& owner, int depth = 0);

private:
    struct Known {
        std::shared_ptr<const Scene> scene;
        bool isOpen = false;  ///< being unpacked: a symbol that stands in itself
    };
    std::shared_ptr<const Scene> Unpack(const drawing::Block& block, int depth);
    std::shared_ptr<const Scene> FromFolder(std::string_view name, int depth);
    std::shared_ptr<const Scene> SceneOf(drawing::Drawing& content, int depth);
    void Tell(std::string_view name, std::string_view reason) const;

    const drawing::Drawing& drawing_;
    const SceneOptions& options_;
    std::unordered_map<std::string, Known> known_;  ///< by name, of the drawing's own blocks and the folder's
};

}  // namespace vexlator::render
