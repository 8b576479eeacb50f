// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Scene.h"
#include "render/View.h"

#include <stop_token>
#include <vector>

class QImage;
class QPainter;

namespace vexlator::render {

struct PaintOptions {
    double pixelsPerMillimetre = 96 / 25.4;  ///< for the width of lines and the size of dots
    /// For a first look: of items that are small on the picture, only some are painted, and no texts.
    bool isCoarse = false;
    std::vector<bool> hiddenLayers;  ///< by their place in the scene's list; those beyond its end are shown
    unsigned threads = 0;            ///< 0: as many as there are processors; a picture does not depend on it
    std::stop_token stop;            ///< painting ends soon after a stop was asked for
};

/// Paints a scene over what an image shows, whose size is that of the view and whose pixels are RGB32 or
/// premultiplied ARGB32. Texts need a QGuiApplication. False when it was stopped.
bool PaintScene(const Scene& scene, const View& view, QImage& image, const PaintOptions& options = {});

/// Paints a scene with any painter whose units are the view's pixels: printers, PDF, SVG. False when it was
/// stopped.
bool PaintScene(const Scene& scene, const View& view, QPainter& painter, const PaintOptions& options = {});

}  // namespace vexlator::render
