// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Scene.h"

#include <QIcon>
#include <QPalette>

namespace vexlator::desktop {

enum class Drawn { Open, ZoomIn, ZoomOut, Fit, Rectangle, Layers, Feature };

/// A line drawing in the palette's text colour, sharp at every scale.
QIcon IconOf(Drawn what, const QPalette& palette);

/// The look of a layer's features, on paper.
QIcon SwatchOf(const render::SceneLayer& layer);

}  // namespace vexlator::desktop
