// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Scene.h"
#include "render/View.h"

#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

class QImage;
class QPainter;

namespace vexlator::render {

/// Pens that count instead of the scene's own: three a layer, for its points, lines and areas; none: the own.
using LayerPens = std::vector<std::optional<Pen>>;
constexpr std::size_t pensPerLayer = 3;

/// Which of a layer's pens an item has: 0 points, texts and symbols; 1 lines; 2 closed courses.
std::size_t PenColumn(ItemKind kind);

struct PaintOptions {
    double pixelsPerMillimetre = 96 / 25.4;  ///< for the width of lines and the size of dots
    /// For a quick preview: only some of the small items are painted, and no texts.
    bool isCoarse = false;
    std::vector<bool> hiddenLayers;  ///< by their place in the scene's list; those beyond its end are shown
    std::shared_ptr<const LayerPens> pens;  ///< null: none
    unsigned threads = 0;  ///< 0: as many as there are processors; a picture does not depend on it
    std::stop_token stop;  ///< painting ends soon after a stop was asked for
};

/// Paints a scene over the contents of an image. The image has the size of the view and pixels in RGB32 or
/// premultiplied ARGB32. Texts need a QGuiApplication. False if it was stopped.
bool PaintScene(const Scene& scene, const View& view, QImage& image, const PaintOptions& options = {});

/// Paints a scene with any painter in units of the view's pixels: printers, PDF, SVG. False if it was
/// stopped.
bool PaintScene(const Scene& scene, const View& view, QPainter& painter, const PaintOptions& options = {});

}  // namespace vexlator::render
