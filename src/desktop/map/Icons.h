// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Scene.h"

#include <QIcon>
#include <QPalette>

namespace vexlator::desktop {

enum class Drawn { Open, ZoomIn, ZoomOut, Fit, Rectangle, Layers, Feature };

/// A line drawing in the colour of the palette's text, sharp at every scale.
QIcon IconOf(Drawn what, const QPalette& palette);

/// How a layer's features look, on paper.
QIcon SwatchOf(const render::SceneLayer& layer);

}  // namespace vexlator::desktop
