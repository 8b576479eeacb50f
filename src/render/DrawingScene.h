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

/// The parts of the drawing for the scene. Frozen layers are never included.
struct SceneOptions {
    std::vector<std::string> layers;  ///< only these layers, in any letter case; empty: all
    std::optional<Box> ground;        ///< only entities that meet this box
    std::string symbolsFolder;        ///< folder of symbols missing in the drawing; "": no folder
    /// Gets a line about each symbol that cannot be read; may be empty.
    std::function<void(std::string_view)> tell;
};

/// The scene of a drawing file. The file is read chunk by chunk, so the scene is all that memory has to hold.
/// @throws platform::ReadError: file, place and reason; also for a wanted layer that does not exist
Scene SceneOfFile(std::string_view path, const SceneOptions& options);

/// The scene of an open drawing. @throws platform::ReadError for a wanted layer that does not exist
Scene SceneOfDrawing(drawing::Drawing& drawing, const SceneOptions& options);

}  // namespace vexlator::render
