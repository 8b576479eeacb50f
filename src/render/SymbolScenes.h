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

/// The scenes of a drawing's blocks, each made at first use.
class SymbolScenes {
public:
    SymbolScenes(const drawing::Drawing& drawing, const SceneOptions& options)
        : drawing_(drawing), options_(options) {}

    /// Limits for the depth of nested symbols, and for the items of a symbol including nested ones each time
    /// they occur. Anything beyond becomes a dot.
    static constexpr int deepest = 16;
    static constexpr std::uint64_t mostItems = 200'000;

    /// The scene of a block named by `owner`, the drawing or a symbol in it; null if the block draws nothing.
    std::shared_ptr<const Scene> Of(std::string_view blockName, const drawing::Drawing& owner, int depth = 0);

private:
    struct Known {
        std::shared_ptr<const Scene> scene;
        bool isOpen = false;  ///< being made: detects a symbol that contains itself
    };
    std::shared_ptr<const Scene> Unpack(const drawing::Block& block, int depth);
    std::shared_ptr<const Scene> FromFolder(std::string_view name, int depth);
    std::shared_ptr<const Scene> SceneOf(drawing::Drawing& content, int depth);
    void Tell(std::string_view name, std::string_view reason) const;

    const drawing::Drawing& drawing_;
    const SceneOptions& options_;
    std::unordered_map<std::string, Known>
        known_;  ///< by name, from the drawing's own blocks and the folder's
};

}  // namespace vexlator::render
