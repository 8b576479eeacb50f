// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/DrawingScene.h"
#include "render/Scene.h"

#include <string_view>

namespace vexlator::render {

/// What a background package shows, or a mosaic of packages. It is proved first. Layers are the themes of
/// classified features, and the colours of others: "Buildings", "Red".
/// @throws platform::ReadError: file, place and reason; also for a wanted layer that is not there
Scene SceneOfPackage(std::string_view path, const SceneOptions& options);

}  // namespace vexlator::render
