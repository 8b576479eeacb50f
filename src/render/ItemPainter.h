// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Course.h"
#include "render/Painter.h"
#include "render/Scene.h"
#include "render/ThinLines.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <optional>

namespace vexlator::render {

/// Paints items, one after the other, on a part of a picture. For one thread.
class ItemPainter {
public:
    /// `thinLines` draws on the same image as the painter; null if the painter does not draw on an image.
    ItemPainter(QPainter& painter, ThinLines* thinLines, const PixelBox& part, const PaintOptions& options);

    /// @param toPixels from the scene's ground to pixels
    void Paint(const Scene& scene, const Scene::Item& item, const Pen& given, const Placement& toPixels);

private:
    /// Paints a symbol's scene, in the colour of its feature.
    void PaintInColour(const Scene& scene, const Placement& toPixels, Argb colour);
    void PaintCourse(const Pen& pen, const Placement& toPixels);
    void PaintArea(const Scene& scene, const Scene::Item& area, const Pen& pen, const Placement& toPixels);
    void PaintCurve(const Scene& scene, const Scene::Item& curve, const Pen& pen, const Placement& toPixels);
    void PaintDot(PlanePoint pixel, const Pen& pen);
    void PaintMarker(PlanePoint pixel, const Pen& pen);
    const QImage& StampOf(const Pen& pen, double size);
    void PaintText(const Text& text, PlanePoint at, double height, double rotation, Argb colour,
                   const Placement& toPixels);
    void DrawLetters(const Text& text, PlanePoint at, double height, double rotation, Argb colour,
                     const Placement& toPixels);
    void PaintSymbol(const Scene& scene, const Scene::Item& symbol, const Pen& pen,
                     const Placement& toPixels);
    void PaintImage(const Scene& scene, const Scene::Item& item, const Pen& pen, const Placement& toPixels);
    void PaintPattern(const Pattern& pattern, const Pen& pen, double pixelsPerUnit);
    void PaintPatternText(const PatternText& text, double height, Argb colour);

    /// Lines through `course_` or another course in pixels.
    void Stroke(std::span<const PlanePoint> course, const Pen& pen);
    void BeginFill(const Pen& pen);
    void FillRing();
    /// The rings of an area, cut to the painted part.
    QPainterPath PathOf(const Scene& scene, const Scene::Item& area, const Placement& toPixels);
    void Hatch(const QPainterPath& path, PlanePoint anchor, const Pen& pen);
    void DrawHatchMark(PlanePoint at, std::uint32_t chance, double size);
    bool IsThin(const Pen& pen) const { return thinLines_ && WidthOf(pen) <= 1.5; }
    double WidthOf(const Pen& pen) const;
    /// For the painter. Files take up less space if coordinates are rounded.
    QPointF PointFor(PlanePoint pixel) const;
    /// The item's pen, with the feature's colours in a symbol.
    Pen Coloured(const Pen& pen) const;
    void UseFont();

    QPainter& painter_;
    ThinLines* thinLines_;
    PixelBox part_;
    const PaintOptions& options_;
    double tolerance_;            ///< distinguishable distance of points in pixels
    std::optional<Argb> colour_;  ///< colour of the feature whose symbol is being painted
    Course course_, piece_, work_, curve_;
    QPolygonF polygon_;
    QFont font_;
    bool hasFont_ = false;
    Pen stampPen_;  ///< of `stamp_`, the marker that was drawn last
    QImage stamp_;
};

}  // namespace vexlator::render
