// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/MapParts.h"

#include "render/Painter.h"
#include "render/RoundLengths.h"
#include "util/Numbers.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace vexlator::render {

namespace {

/// In heights of small text.
constexpr double tickLabelHeight = 1.8, legendRow = 1.9, legendSampleWidth = 3, sampleHeight = 1.3,
                 northArrowHeight = 5;

/// A scene with one item in the style of the layer's first item.
Scene SampleOf(const Scene& scene, const SceneLayer& layer, double width, double height) {
    SceneBuilder builder;
    std::uint32_t number = builder.AddLayer(layer.name), pen = builder.AddPen(layer.pen);
    const PlanePoint corners[] = {{1, 1}, {width - 1, 1}, {width - 1, height - 1}, {1, height - 1}};
    const PlanePoint course[] = {
        {0, height / 4}, {width * 0.35, height * 0.75}, {width * 0.65, height / 4}, {width, height * 0.75}};
    if (layer.kind == ItemKind::Area || layer.kind == ItemKind::Image) {
        builder.AddCourse(number, pen, layer.kind, corners);
    } else if (layer.kind == ItemKind::Dot) {
        builder.AddDot(number, pen, {width / 2, height / 2});
    } else if (layer.kind == ItemKind::Text) {
        builder.AddText(number, pen, {width / 4, height / 4}, height * 0.8, 0, {"Ab", TextAnchor::Baseline});
    } else if (layer.kind == ItemKind::Circle) {
        builder.AddCircle(number, pen, {width / 2, height / 2}, height / 2 - 1);
    } else if (layer.kind == ItemKind::Symbol) {
        const Box& box = scene.Symbol(layer.symbol).Extents();
        double size = std::max({box.maxX - box.minX, box.maxY - box.minY, 1e-9}), scale = (height - 2) / size;
        PlanePoint middle{box.minX / 2 + box.maxX / 2, box.minY / 2 + box.maxY / 2};
        std::uint32_t symbol = builder.AddSymbol(scene.SharedSymbol(layer.symbol));
        builder.AddSymbolAt(
            number, pen, symbol,
            {{scale, 0}, {0, scale}, {width / 2 - scale * middle.x, height / 2 - scale * middle.y}});
    } else {
        builder.AddCourse(number, pen, ItemKind::Line, course);
    }
    return builder.Take();
}

/// Calls `tick(coordinate)` for the multiples of a step. Their number is counted, because coordinates may not
/// be able to express a step.
template <typename Tick>
void ForEachTick(double least, double most, double step, Tick tick) {
    constexpr int mostTicks = 1000;
    double first = std::ceil(least / step);
    for (int i = 0; i < mostTicks && (first + i) * step <= most; ++i) tick((first + i) * step);
}

}  // namespace

QFont MapFont(double pixels, bool isBold) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    font.setBold(isBold);
    return font;
}

void DrawCentred(QPainter& painter, QPointF middle, const QString& text) {
    QFontMetricsF metrics(painter.font());
    painter.drawText(
        QPointF(middle.x() - metrics.horizontalAdvance(text) / 2, middle.y() + metrics.capHeight() / 2),
        text);
}

void MapParts::Frame(const View& view, const PixelBox& map) const {
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(Qt::black, std::max(1.0, unit_ / 10)));
    painter_.drawRect(QRectF(QPointF(map.left, map.top), QPointF(map.right, map.bottom)));
    painter_.setFont(MapFont(0.95 * unit_));
    const Box ground = view.Ground();
    double step = RoundStep(11 * unit_ / view.Scale());
    int decimals = DecimalsOf(step);
    const double length = unit_ / 2, off = tickLabelHeight * unit_ * 0.55;
    ForEachTick(ground.minX, ground.maxX, step, [&](double x) {
        double at = map.left + view.ToPixels()({x, 0}).x;
        QString label = QString::fromStdString(util::FormatFixed(x, decimals));
        painter_.drawLine(QPointF(at, map.top), QPointF(at, map.top + length));
        painter_.drawLine(QPointF(at, map.bottom), QPointF(at, map.bottom - length));
        DrawCentred(painter_, {at, map.top - off}, label);
        DrawCentred(painter_, {at, map.bottom + off}, label);
    });
    QFontMetricsF metrics(painter_.font());
    ForEachTick(ground.minY, ground.maxY, step, [&](double y) {
        double at = map.top + view.ToPixels()({0, y}).y;
        painter_.drawLine(QPointF(map.left, at), QPointF(map.left + length, at));
        painter_.drawLine(QPointF(map.right, at), QPointF(map.right - length, at));
        QString label = QString::fromStdString(util::FormatFixed(y, decimals));
        // Outside the frame's ends it would overlap the labels of the other sides.
        double half = metrics.horizontalAdvance(label) / 2;
        if (at - half < map.top || at + half > map.bottom) return;
        painter_.save();
        painter_.translate(map.left - off, at);
        painter_.rotate(-90);
        DrawCentred(painter_, {0, 0}, label);
        painter_.restore();
    });
}

double MapParts::ScaleBar(const View& view, PlanePoint topLeft, double mostWidth) const {
    constexpr int parts = 4;
    double length = RoundStep(mostWidth / view.Scale()), pixels = length * view.Scale();
    painter_.setPen(QPen(Qt::black, std::max(1.0, unit_ / 14)));
    for (int part = 0; part < parts; ++part) {
        painter_.setBrush(part % 2 == 0 ? Qt::black : Qt::white);
        painter_.drawRect(QRectF(topLeft.x + pixels * part / parts, topLeft.y, pixels / parts, unit_ * 0.5));
    }
    painter_.setFont(MapFont(unit_));
    bool inDegrees = IsInDegrees(view.Ground());
    double below = topLeft.y + unit_ * 1.4;
    DrawCentred(painter_, {topLeft.x + unit_ * 0.3, below}, QStringLiteral("0"));
    DrawCentred(painter_, {topLeft.x + pixels, below}, QString::fromStdString(LengthText(length, inDegrees)));
    return pixels;
}

void MapParts::NorthArrow(PlanePoint tip) const {
    double bottom = tip.y + northArrowHeight * unit_, tail = bottom - unit_ * 1.4;
    painter_.setPen(QPen(Qt::black, std::max(1.0, unit_ / 14)));
    const QPointF left[] = {{tip.x, tip.y}, {tip.x - unit_, tail}, {tip.x, tail - unit_ * 0.7}};
    const QPointF right[] = {{tip.x, tip.y}, {tip.x + unit_, tail}, {tip.x, tail - unit_ * 0.7}};
    painter_.setBrush(Qt::black);
    painter_.drawPolygon(left, 3);
    painter_.setBrush(Qt::white);
    painter_.drawPolygon(right, 3);
    painter_.setFont(MapFont(1.2 * unit_, true));
    DrawCentred(painter_, {tip.x, bottom - unit_ * 0.4}, QStringLiteral("N"));
}

void MapParts::Sample(const Scene& scene, const SceneLayer& layer, PlanePoint topLeft) const {
    int width = static_cast<int>(legendSampleWidth * unit_), height = static_cast<int>(sampleHeight * unit_);
    Scene sample = SampleOf(scene, layer, width, height);
    PaintOptions options;
    options.pixelsPerMillimetre = pixelsPerMillimetre_;
    painter_.save();
    painter_.translate(topLeft.x, topLeft.y);
    PaintScene(sample, View({0, 0, double(width), double(height)}, width, height), painter_, options);
    painter_.restore();
}

void MapParts::Row(PlanePoint topLeft, double width, const QString& text) const {
    QFontMetricsF metrics(painter_.font());
    double indent = (legendSampleWidth + 0.8) * unit_;
    painter_.setPen(Qt::black);
    painter_.drawText(
        QPointF(topLeft.x + indent, topLeft.y + sampleHeight * unit_ / 2 + metrics.capHeight() / 2),
        metrics.elidedText(text, Qt::ElideRight, width - indent));
}

std::size_t MapParts::LegendRows(const PixelBox& area) const {
    return static_cast<std::size_t>(std::max(0.0, (area.bottom - area.top) / (legendRow * unit_)));
}

void MapParts::Legend(const Scene& scene, std::span<const SceneLayer* const> layers, const PixelBox& area,
                      int columns) const {
    double row = legendRow * unit_, width = (area.right - area.left) / columns;
    std::size_t perColumn = LegendRows(area);
    std::size_t rows = perColumn * static_cast<std::size_t>(columns);
    std::size_t shown = layers.size() <= rows ? layers.size() : std::max<std::size_t>(rows, 1) - 1;
    painter_.setFont(MapFont(1.05 * unit_));
    auto placeOf = [&](std::size_t number) {
        std::size_t column = number / std::max<std::size_t>(perColumn, 1);
        return PlanePoint{area.left + width * double(column),
                          area.top + row * double(number - column * perColumn)};
    };
    for (std::size_t i = 0; i < shown; ++i) {
        Sample(scene, *layers[i], placeOf(i));
        Row(placeOf(i), width - unit_ / 2, QString::fromStdString(layers[i]->name));
    }
    if (shown < layers.size())
        Row(placeOf(shown), width - unit_ / 2, QStringLiteral("and %1 more").arg(layers.size() - shown));
}

}  // namespace vexlator::render
