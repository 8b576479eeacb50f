// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/Furniture.h"

#include "render/Painter.h"
#include "render/RoundLengths.h"
#include "util/Numbers.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace vexlator::render {

namespace {

/// Distances on the page, in heights of small text.
constexpr double titleHeight = 3.2, labelHeight = 1.8, footHeight = 3.4, edge = 1.2, legendRow = 1.9,
                 sampleWidth = 3, arrowHeight = 5;
/// Minimum width of a page with a legend, in heights of small text.
constexpr double leastForLegend = 50;

QFont FontOf(double pixels, bool isBold = false) {
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

/// A scene with one item in the style of the layer's first item.
Scene SampleOf(const Scene& scene, const SceneLayer& layer, double width, double height) {
    SceneBuilder builder;
    std::uint32_t number = builder.AddLayer(layer.name), pen = builder.AddPen(layer.pen);
    const PlanePoint corners[] = {{1, 1}, {width - 1, 1}, {width - 1, height - 1}, {1, height - 1}};
    const PlanePoint course[] = {
        {0, height / 4}, {width * 0.35, height * 0.75}, {width * 0.65, height / 4}, {width, height * 0.75}};
    if (layer.kind == ItemKind::Area) {
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
    PaintFrame(view, painter);
    PaintScaleBar(view, painter);
    PaintNote(painter);
    if (HasLegend()) {
        PaintNorthArrow(painter);
        PaintLegend(painter);
    }
    painter.restore();
}

void Furniture::PaintTitle(QPainter& painter) const {
    PixelArea map = MapArea();
    painter.setFont(FontOf(1.7 * unit_, true));
    QString title =
        QFontMetricsF(painter.font())
            .elidedText(QString::fromStdString(title_), Qt::ElideRight, width_ - map.left - unit_);
    painter.drawText(QPointF(map.left, titleHeight * unit_ * 0.72), title);
}

void Furniture::PaintFrame(const View& view, QPainter& painter) const {
    PixelArea map = MapArea();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, std::max(1.0, unit_ / 10)));
    painter.drawRect(QRectF(map.left, map.top, map.width, map.height));
    painter.setFont(FontOf(0.95 * unit_));
    const Box ground = view.Ground();
    double step = RoundStep(11 * unit_ / view.Scale());
    int decimals = DecimalsOf(step);
    // The number of steps is counted, because coordinates may not be able to express a step.
    auto forEachTick = [&](double least, double most, auto tick) {
        double first = std::ceil(least / step);
        for (int i = 0; i < 1000 && (first + i) * step <= most; ++i) tick((first + i) * step);
    };
    const double length = unit_ / 2, off = labelHeight * unit_ * 0.55;
    const double bottom = map.top + map.height, right = map.left + map.width;
    forEachTick(ground.minX, ground.maxX, [&](double x) {
        double at = map.left + view.ToPixels()({x, 0}).x;
        QString label = QString::fromStdString(util::FormatFixed(x, decimals));
        painter.drawLine(QPointF(at, map.top), QPointF(at, map.top + length));
        painter.drawLine(QPointF(at, bottom), QPointF(at, bottom - length));
        DrawCentred(painter, {at, map.top - off}, label);
        DrawCentred(painter, {at, bottom + off}, label);
    });
    QFontMetricsF metrics(painter.font());
    forEachTick(ground.minY, ground.maxY, [&](double y) {
        double at = map.top + view.ToPixels()({0, y}).y;
        painter.drawLine(QPointF(map.left, at), QPointF(map.left + length, at));
        painter.drawLine(QPointF(right, at), QPointF(right - length, at));
        QString label = QString::fromStdString(util::FormatFixed(y, decimals));
        // Outside the frame's ends it would overlap the labels of the other sides.
        double half = metrics.horizontalAdvance(label) / 2;
        if (at - half < map.top || at + half > bottom) return;
        painter.save();
        painter.translate(map.left - off, at);
        painter.rotate(-90);
        DrawCentred(painter, {0, 0}, label);
        painter.restore();
    });
}

void Furniture::PaintScaleBar(const View& view, QPainter& painter) const {
    constexpr int parts = 4;
    PixelArea map = MapArea();
    double length = RoundStep(map.width / 3.0 / view.Scale()), pixels = length * view.Scale();
    double left = map.left, top = map.top + map.height + labelHeight * unit_ + unit_ * 0.4;
    painter.setPen(QPen(Qt::black, std::max(1.0, unit_ / 14)));
    for (int part = 0; part < parts; ++part) {
        painter.setBrush(part % 2 == 0 ? Qt::black : Qt::white);
        painter.drawRect(QRectF(left + pixels * part / parts, top, pixels / parts, unit_ * 0.5));
    }
    painter.setFont(FontOf(unit_));
    bool inDegrees = IsInDegrees(view.Ground());
    double below = top + unit_ * 1.4;
    DrawCentred(painter, {left + unit_ * 0.3, below}, QStringLiteral("0"));
    DrawCentred(painter, {left + pixels, below}, QString::fromStdString(LengthText(length, inDegrees)));
}

void Furniture::PaintNote(QPainter& painter) const {
    PixelArea map = MapArea();
    painter.setPen(Qt::black);
    painter.setFont(FontOf(0.9 * unit_));
    QString note = QString::fromStdString(note_);
    QFontMetricsF metrics(painter.font());
    // Beside the scale bar, which takes a third of the width.
    note = metrics.elidedText(note, Qt::ElideRight, map.width * 0.6);
    painter.drawText(QPointF(map.left + map.width - metrics.horizontalAdvance(note),
                             map.top + map.height + (labelHeight + 1.2) * unit_),
                     note);
}

void Furniture::PaintNorthArrow(QPainter& painter) const {
    PixelArea map = MapArea();
    double middle = map.left + map.width + unit_ * 3, top = map.top, bottom = map.top + arrowHeight * unit_;
    double tail = bottom - unit_ * 1.4;
    painter.setPen(QPen(Qt::black, std::max(1.0, unit_ / 14)));
    const QPointF left[] = {{middle, top}, {middle - unit_, tail}, {middle, tail - unit_ * 0.7}};
    const QPointF right[] = {{middle, top}, {middle + unit_, tail}, {middle, tail - unit_ * 0.7}};
    painter.setBrush(Qt::black);
    painter.drawPolygon(left, 3);
    painter.setBrush(Qt::white);
    painter.drawPolygon(right, 3);
    painter.setFont(FontOf(1.2 * unit_, true));
    DrawCentred(painter, {middle, bottom - unit_ * 0.4}, QStringLiteral("N"));
}

void Furniture::PaintLegend(QPainter& painter) const {
    PixelArea map = MapArea();
    double left = map.left + map.width + unit_ * 1.5, row = legendRow * unit_;
    double top = map.top + (arrowHeight + 2) * unit_, bottom = map.top + map.height;
    auto rows = static_cast<std::size_t>(std::max(0.0, (bottom - top) / row));
    std::vector<const SceneLayer*> layers;
    for (const SceneLayer& layer : scene_.Layers())
        if (layer.items > 0) layers.push_back(&layer);
    std::size_t shown = layers.size() <= rows ? layers.size() : std::max<std::size_t>(rows, 1) - 1;
    int width = static_cast<int>(sampleWidth * unit_), height = static_cast<int>(unit_ * 1.3);
    painter.setFont(FontOf(1.05 * unit_));
    QFontMetricsF metrics(painter.font());
    double textLeft = left + width + unit_ * 0.8;
    auto write = [&](std::size_t number, const QString& text) {
        painter.setPen(Qt::black);
        painter.drawText(
            QPointF(textLeft, top + row * double(number) + height * 0.5 + metrics.capHeight() / 2),
            metrics.elidedText(text, Qt::ElideRight, width_ - textLeft - unit_ / 2));
    };
    for (std::size_t i = 0; i < shown; ++i) {
        Scene sample = SampleOf(scene_, *layers[i], width, height);
        painter.save();
        painter.translate(left, top + row * double(i));
        PaintScene(sample, View({0, 0, double(width), double(height)}, width, height), painter);
        painter.restore();
        write(i, QString::fromStdString(layers[i]->name));
    }
    if (shown < layers.size()) write(shown, QStringLiteral("and %1 more").arg(layers.size() - shown));
}

}  // namespace vexlator::render
