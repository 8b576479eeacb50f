// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/MobileStyles.h"
#include "render/DrawingScene.h"
#include "render/Scene.h"

#include <string_view>

namespace vexlator::render {

/// The scene of a background package, or of a mosaic of packages, which is proved first. Layers are the
/// themes of classified features, and the colours of others, and "Images": "Buildings", "Red".
/// What refers to a mobile style is drawn by it: black where `mobileStyles` does not hold it.
/// @throws platform::ReadError: file, place and reason; also for a wanted layer that does not exist
Scene SceneOfPackage(std::string_view path, const SceneOptions& options,
                     const background::MobileStyles& mobileStyles = background::MobileStyles());

}  // namespace vexlator::render
