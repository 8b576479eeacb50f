// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Scene.h"
#include "vdfpicture/Options.h"

#include <functional>
#include <string_view>

namespace vexlator::vdfpicture {

/// Paints a scene and writes the picture, atomically; needs a QGuiApplication. `tell` gets a line about
/// contents left out of the picture.
/// @throws platform::WriteError
void WritePicture(const render::Scene& scene, const Options& options,
                  const std::function<void(std::string_view)>& tell);

}  // namespace vexlator::vdfpicture
