// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/Furniture.h"

#include "render/MapParts.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace vexlator::render {

namespace {

/// Distances on the page, in heights of small text.
constexpr double titleHeight = 3.2, labelHeight = 1.8, footHeight = 3.4, edge = 1.2, sampleWidth = 3,
                 arrowHeight = 5;
/// Minimum width of a page with a legend, in heights of small text.
constexpr double leastForLegend = 50;

}  // namespace

Furniture::Furniture(const Scene& scene, std::string title, std::string note, int width, int height)
    : scene_(scene),
      title_(std::move(title)),
      note_(std::move(note)),
      width_(width),
      height_(height),
      unit_(std::clamp(std::min(width, height) / 70.0, 6.0, 60.0)),
      legendWidth_(LegendWidth()) {}

double Furniture::LegendWidth() const {
    constexpr double letter = 0.68, least = 9, most = 26;
    if (width_ < leastForLegend * unit_) return 0;
    std::size_t longest = 0;
    for (const SceneLayer& layer : scene_.Layers())
        if (layer.items > 0) longest = std::max(longest, layer.name.size());
    return std::clamp(sampleWidth + 3 + letter * double(longest), least, most) * unit_;
}

PixelArea Furniture::MapArea() const {
    int left = static_cast<int>((edge + labelHeight) * unit_);
    int top = static_cast<int>((titleHeight + labelHeight) * unit_);
    int right = static_cast<int>(HasLegend() ? legendWidth_ : (edge + labelHeight) * unit_);
    int bottom = static_cast<int>((labelHeight + footHeight) * unit_);
    return {left, top, std::max(1, width_ - left - right), std::max(1, height_ - top - bottom)};
}

void Furniture::Paint(const View& view, QPainter& painter) const {
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(Qt::black);
    PaintTitle(painter);
    PixelArea map = MapArea();
    const double left = map.left, top = map.top, right = left + map.width, bottom = top + map.height;
    MapParts parts(painter, unit_);
    parts.Frame(view, {left, top, right, bottom});
    parts.ScaleBar(view, {left, bottom + (labelHeight + 0.4) * unit_}, map.width / 3.0);
    PaintNote(painter);
    if (HasLegend()) {
        parts.NorthArrow({right + unit_ * 3, top});
        PaintLegend(painter);
    }
    painter.restore();
}

void Furniture::PaintTitle(QPainter& painter) const {
    PixelArea map = MapArea();
    painter.setFont(MapFont(1.7 * unit_, true));
    QString title =
        QFontMetricsF(painter.font())
            .elidedText(QString::fromStdString(title_), Qt::ElideRight, width_ - map.left - unit_);
    painter.drawText(QPointF(map.left, titleHeight * unit_ * 0.72), title);
}

void Furniture::PaintNote(QPainter& painter) const {
    PixelArea map = MapArea();
    painter.setPen(Qt::black);
    painter.setFont(MapFont(0.9 * unit_));
    QString note = QString::fromStdString(note_);
    QFontMetricsF metrics(painter.font());
    // Beside the scale bar, which takes a third of the width.
    note = metrics.elidedText(note, Qt::ElideRight, map.width * 0.6);
    painter.drawText(QPointF(map.left + map.width - metrics.horizontalAdvance(note),
                             map.top + map.height + (labelHeight + 1.2) * unit_),
                     note);
}

void Furniture::PaintLegend(QPainter& painter) const {
    PixelArea map = MapArea();
    std::vector<const SceneLayer*> layers;
    for (const SceneLayer& layer : scene_.Layers())
        if (layer.items > 0) layers.push_back(&layer);
    double right = map.left + map.width;
    MapParts(painter, unit_)
        .Legend(scene_, layers,
                {right + unit_ * 1.5, map.top + (arrowHeight + 2) * unit_, double(width_),
                 double(map.top + map.height)});
}

}  // namespace vexlator::render
