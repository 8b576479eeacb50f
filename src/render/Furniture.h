// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Scene.h"
#include "render/View.h"

#include <string>

class QPainter;

namespace vexlator::render {

/// A rectangle of pixels.
struct PixelArea {
    int left, top, width, height;
};

/// What makes a map of a picture: a frame with coordinates, scale bar, north arrow, legend and title. It lies
/// around the map, which gets the largest part of the page.
class Furniture {
public:
    /// `note` is small print at the foot of the page, for what the map leaves out.
    Furniture(const Scene& scene, std::string title, std::string note, int width, int height);

    /// Where the map lies on the page.
    PixelArea MapArea() const;
    /// Paints all but the map. The view is that of the map area. Needs a QGuiApplication.
    void Paint(const View& view, QPainter& painter) const;

private:
    void PaintTitle(QPainter& painter) const;
    void PaintFrame(const View& view, QPainter& painter) const;
    void PaintLegend(QPainter& painter) const;
    void PaintScaleBar(const View& view, QPainter& painter) const;
    void PaintNote(QPainter& painter) const;
    void PaintNorthArrow(QPainter& painter) const;

    bool HasLegend() const { return legendWidth_ > 0; }
    /// Pixels, by the longest name; 0 where the page is too narrow.
    double LegendWidth() const;

    const Scene& scene_;
    std::string title_, note_;
    int width_, height_;
    double unit_;  ///< pixels: the height of small print
    double legendWidth_;
};

}  // namespace vexlator::render
