// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "render/Scene.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::render {

/// What of a drawing comes into the scene. Frozen layers never do.
struct SceneOptions {
    std::vector<std::string> layers;  ///< only these, in any letter case; empty: all
    std::optional<Box> ground;        ///< only what meets this box
    std::string symbolsFolder;        ///< where symbols are that the drawing names and lacks; "": nowhere
    /// Takes a line on a symbol that cannot be read; may be empty.
    std::function<void(std::string_view)> tell;
};

/// What a drawing file shows. It is read chunk by chunk, so that no more of it than the scene is in memory.
/// @throws platform::ReadError: file, place and reason; also for a wanted layer that is not there
Scene SceneOfFile(std::string_view path, const SceneOptions& options);

/// What an open drawing shows. @throws platform::ReadError for a wanted layer that is not there
Scene SceneOfDrawing(drawing::Drawing& drawing, const SceneOptions& options);

}  // namespace vexlator::render
