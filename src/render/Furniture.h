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

/// The additions that make a map of a picture: a frame with coordinates, scale bar, north arrow, legend and
/// title. They surround the map, which gets the largest part of the page.
class Furniture {
public:
    /// `note` is small text at the foot of the page, about parts left out of the map.
    Furniture(const Scene& scene, std::string title, std::string note, int width, int height);

    /// The position of the map on the page.
    PixelArea MapArea() const;
    /// Paints everything except the map. The view is that of the map area. Needs a QGuiApplication.
    void Paint(const View& view, QPainter& painter) const;

private:
    void PaintTitle(QPainter& painter) const;
    void PaintLegend(QPainter& painter) const;
    void PaintNote(QPainter& painter) const;

    bool HasLegend() const { return legendWidth_ > 0; }
    /// Width in pixels, by the longest name; 0 if the page is too narrow.
    double LegendWidth() const;

    const Scene& scene_;
    std::string title_, note_;
    int width_, height_;
    double unit_;  ///< height of small text in pixels
    double legendWidth_;
};

}  // namespace vexlator::render
