// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "mapbook/paint/BookPages.h"
#include "render/Furniture.h"
#include "render/Painter.h"
#include "render/View.h"

#include <string>
#include <vector>

class QImage;
class QPainter;
class QRectF;

namespace vexlator::mapbook {

/// What the pages of a book show.
struct BookContent {
    const BookPlan& plan;
    const render::Scene& scene;
    const render::Scene* background = nullptr;
    const SurveyReport* report = nullptr;  ///< of report pages
};

/// Draws a page in pixels of its image, whose longer side has 2400. The same drawing makes JPEG and PDF
/// pages. Needs a QGuiApplication; one painter a thread.
class PagePainter {
public:
    static constexpr int longerSide = 2400;

    PagePainter(const BookContent& content, const BookPage& page);

    int Width() const { return width_; }
    int Height() const { return height_; }
    double PixelsPerMillimetre() const { return pixelsPerMillimetre_; }
    /// Where the map is, in pixels, and the view that it shows.
    const render::PixelArea& MapArea() const { return map_; }
    const render::View& MapView() const { return view_; }

    /// The whole page as an image.
    QImage Image() const;
    /// The whole page with a painter of another device, scaled to the page's pixels.
    void Paint(QPainter& painter) const;

private:
    render::PaintOptions Options() const;
    void PaintMap(QPainter& painter) const;
    void PaintFetched(QPainter& painter, const QRectF& map) const;
    /// @param factor how many pixels are one of the page
    QImage MapImage(int factor) const;
    void PaintAround(QPainter& painter) const;
    void PaintFrames(QPainter& painter) const;
    void PaintIndexFrames(QPainter& painter) const;
    void PaintNeighbours(QPainter& painter) const;
    void PaintFurniture(QPainter& painter) const;
    void PaintTitles(QPainter& painter) const;
    void PaintMarks(QPainter& painter) const;

    const BookContent& content_;
    const BookPage& page_;
    double pixelsPerMillimetre_;
    int width_, height_;
    render::PixelArea map_;
    render::View view_;
};

}  // namespace vexlator::mapbook
