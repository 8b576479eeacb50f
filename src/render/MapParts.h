// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Course.h"
#include "render/Scene.h"
#include "render/View.h"

#include <cstddef>
#include <span>

class QFont;
class QPainter;
class QPointF;
class QString;

namespace vexlator::render {

/// The font of maps in this size, in pixels.
QFont MapFont(double pixels, bool isBold = false);
/// Draws a text around a position.
void DrawCentred(QPainter& painter, QPointF middle, const QString& text);

/// Draws the parts of a printed map, each where the page has room for it. Needs a QGuiApplication.
class MapParts {
public:
    /// @param unit height of small text in pixels
    MapParts(QPainter& painter, double unit, double pixelsPerMillimetre = 96 / 25.4)
        : painter_(painter), unit_(unit), pixelsPerMillimetre_(pixelsPerMillimetre) {}

    /// The frame around a map, which the view shows: ticks inside of it, coordinates outside, at the left
    /// side, above and below. They need 1.8 units.
    void Frame(const View& view, const PixelBox& map) const;
    /// A bar with its length below it, at most this wide; three units high. Returns its width.
    double ScaleBar(const View& view, PlanePoint topLeft, double mostWidth) const;
    /// Two units wide and five units high.
    void NorthArrow(PlanePoint tip) const;
    /// A sample and the name of each layer, in columns, as far as there is room.
    void Legend(const Scene& scene, std::span<const SceneLayer* const> layers, const PixelBox& area,
                int columns = 1) const;
    /// The layers that a column of the legend has room for.
    std::size_t LegendRows(const PixelBox& area) const;

private:
    void Sample(const Scene& scene, const SceneLayer& layer, PlanePoint topLeft) const;
    /// Elided to the width.
    void Row(PlanePoint topLeft, double width, const QString& text) const;

    QPainter& painter_;
    double unit_, pixelsPerMillimetre_;
};

}  // namespace vexlator::render
