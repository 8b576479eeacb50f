// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/ItemPainter.h"

#include "util/Angles.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <cmath>
#include <numbers>

namespace vexlator::render {

namespace {

/// The font has this size, in pixels, and is scaled from it, so that letters have their exact size.
constexpr int fontPixels = 64;
/// Pixels: smaller texts are illegible and are drawn as lines; smaller symbols are drawn as dots.
constexpr double leastText = 3, leastSymbol = 3;
/// Pixels: larger letters are unrecognisable.
constexpr double mostText = 20000;
constexpr double dotMillimetres = 1.2, hairlineMillimetres = 0.25;
/// Distance from a text's top to its baseline, in text heights.
constexpr double topToBaseline = 0.76;

QColor ColourOf(Argb colour) {
    return QColor::fromRgba(colour);
}

}  // namespace

ItemPainter::ItemPainter(QPainter& painter, ThinLines* thinLines, const PixelBox& part,
                         const PaintOptions& options)
    : painter_(painter),
      thinLines_(thinLines),
      part_(part),
      options_(options),
      tolerance_(thinLines ? 0.5 : 0.1) {
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
}

void ItemPainter::Paint(const Scene& scene, const Scene::Item& item, const Pen& given,
                        const Placement& toPixels) {
    Pen pen = Coloured(given);
    std::span<const PlanePoint> vertices = scene.VerticesOf(item);
    switch (item.kind) {
        case ItemKind::Line:
        case ItemKind::Ring:
            Project(vertices, toPixels, tolerance_, item.kind == ItemKind::Ring, course_);
            return PaintCourse(pen, toPixels);
        case ItemKind::Area:
            return PaintArea(scene, item, pen, toPixels);
        case ItemKind::Dot:
            return PaintDot(toPixels(vertices[0]), pen);
        case ItemKind::Circle:
        case ItemKind::Arc:
            return PaintCurve(scene, item, pen, toPixels);
        case ItemKind::Text:
            return PaintText(scene.TextOf(item), vertices[0], vertices[1].x, vertices[1].y, pen.line,
                             toPixels);
        case ItemKind::Symbol:
            return PaintSymbol(scene, item, pen, toPixels);
    }
}

void ItemPainter::PaintInColour(const Scene& scene, const Placement& toPixels, Argb colour) {
    std::optional<Argb> outer = colour_;
    colour_ = colour;
    for (std::size_t i = 0; i < scene.ItemCount() && !options_.stop.stop_requested(); ++i)
        Paint(scene, scene.At(i), scene.PenOf(scene.At(i)), toPixels);
    colour_ = outer;
}

Pen ItemPainter::Coloured(const Pen& pen) const {
    Pen coloured = pen;
    if (colour_ && pen.lineTakesColour && pen.line != 0) coloured.line = *colour_;
    if (colour_ && pen.fillTakesColour && pen.fill != 0) coloured.fill = *colour_;
    return coloured;
}

double ItemPainter::WidthOf(const Pen& pen) const {
    double width = pen.weight / 100.0 * options_.pixelsPerMillimetre;
    return std::max(width, thinLines_ ? 1.0 : hairlineMillimetres * options_.pixelsPerMillimetre);
}

// --- Lines

void ItemPainter::PaintCourse(const Pen& pen, const Placement& toPixels) {
    if (pen.line == 0 || course_.empty()) return;
    if (pen.lineType == 0) return Stroke(course_, pen);
    const LineType& type = LineTypeOf(pen.lineType);
    double pixelsPerUnit = type.onGround ? toPixels.LargerScale() : options_.pixelsPerMillimetre;
    Pattern pattern(type, pixelsPerUnit);
    if (!pattern.IsVisible()) return Stroke(course_, pen);
    PaintPattern(pattern, pen, pixelsPerUnit);
}

void ItemPainter::PaintPattern(const Pattern& pattern, const Pen& pen, double pixelsPerUnit) {
    constexpr double textHeight = 5;  // in the pattern's units; a dash has ten
    pattern.Cut(
        part_.Grown(WidthOf(pen) + textHeight * pixelsPerUnit), course_,
        [&](PlanePoint from, PlanePoint to) {
            PlanePoint dash[] = {from, to};
            Stroke(dash, pen);
        },
        [&](const PatternText& text) { PaintPatternText(text, textHeight * pixelsPerUnit, pen.line); });
}

void ItemPainter::Stroke(std::span<const PlanePoint> course, const Pen& pen) {
    if (course.size() < 2) return PaintDot(course[0], pen);
    if (IsThin(pen)) return thinLines_->DrawCourse(course, pen.line);
    double width = WidthOf(pen);
    painter_.setPen(QPen(ColourOf(pen.line), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    ForEachPartIn(part_.Grown(width + 1), course, piece_, [&](const Course& part) {
        polygon_.clear();
        for (PlanePoint p : part) polygon_.append(QPointF(p.x, p.y));
        painter_.drawPolyline(polygon_);
    });
}

void ItemPainter::PaintDot(PlanePoint pixel, const Pen& pen) {
    double size = dotMillimetres * options_.pixelsPerMillimetre;
    if (thinLines_)
        return thinLines_->DrawDot(pixel, std::max(1, static_cast<int>(std::lround(size))), pen.line);
    if (!part_.Grown(size).Holds(pixel)) return;
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(ColourOf(pen.line));
    painter_.drawEllipse(QPointF(pixel.x, pixel.y), size / 2, size / 2);
}

void ItemPainter::PaintCurve(const Scene& scene, const Scene::Item& curve, const Pen& pen,
                             const Placement& toPixels) {
    constexpr double wholeTurn = 2 * std::numbers::pi;
    std::span<const PlanePoint> vertices = scene.VerticesOf(curve);
    double start = 0, sweep = wholeTurn;
    if (curve.kind == ItemKind::Arc) {
        start = vertices[2].x;
        sweep = std::fmod(vertices[2].y - start, wholeTurn);
        if (sweep <= 0) sweep += wholeTurn;
    }
    CurveOf(vertices[0], vertices[1].x, start, sweep, toPixels.LargerScale(), curve_);
    Project(curve_, toPixels, tolerance_, false, course_);
    if (pen.fill != 0) FillRing();
    PaintCourse(pen, toPixels);
}

// --- Areas

void ItemPainter::PaintArea(const Scene& scene, const Scene::Item& area, const Pen& pen,
                            const Placement& toPixels) {
    std::span<const PlanePoint> vertices = scene.VerticesOf(area);
    std::span<const std::uint32_t> ends = scene.RingEndsOf(area);
    if (pen.fill != 0) {
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(ColourOf(pen.fill));
        if (ends.size() > 1) FillPath(scene, area, toPixels);
    }
    for (std::size_t ring = 0; ring < ends.size(); ++ring) {
        std::size_t begin = ring == 0 ? 0 : ends[ring - 1];
        Project(vertices.subspan(begin, ends[ring] - begin), toPixels, tolerance_, true, course_);
        if (course_.empty()) continue;
        if (pen.fill != 0 && ends.size() == 1) FillRing();
        PaintCourse(pen, toPixels);
    }
}

/// Fills `course_`.
void ItemPainter::FillRing() {
    ClipRing(part_.Grown(2), course_, piece_, work_);
    polygon_.clear();
    for (PlanePoint p : piece_) polygon_.append(QPointF(p.x, p.y));
    painter_.drawPolygon(polygon_, Qt::OddEvenFill);
}

void ItemPainter::FillPath(const Scene& scene, const Scene::Item& area, const Placement& toPixels) {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    std::size_t begin = 0;
    for (std::uint32_t end : scene.RingEndsOf(area)) {
        Project(scene.VerticesOf(area).subspan(begin, end - begin), toPixels, tolerance_, true, course_);
        begin = end;
        ClipRing(part_.Grown(2), course_, piece_, work_);
        polygon_.clear();
        for (PlanePoint p : piece_) polygon_.append(QPointF(p.x, p.y));
        path.addPolygon(polygon_);
        path.closeSubpath();
    }
    painter_.drawPath(path);
}

// --- Symbols and texts

void ItemPainter::PaintSymbol(const Scene& scene, const Scene::Item& symbol, const Pen& pen,
                              const Placement& toPixels) {
    std::span<const PlanePoint> vertices = scene.VerticesOf(symbol);
    const Scene& content = scene.SymbolOf(symbol);
    Placement inner = toPixels.After({vertices[1], vertices[2], vertices[0]});
    const Box& box = content.Extents();
    double size = std::max(box.maxX - box.minX, box.maxY - box.minY) * inner.LargerScale();
    if (!(size >= leastSymbol)) return PaintDot(toPixels(vertices[0]), pen);
    PaintInColour(content, inner, pen.line);
}

void ItemPainter::UseFont() {
    if (!hasFont_) {
        font_ = QFont(QStringLiteral("DejaVu Sans"));
        font_.setPixelSize(fontPixels);
        font_.setHintingPreference(QFont::PreferNoHinting);
        hasFont_ = true;
    }
    painter_.setFont(font_);
}

void ItemPainter::PaintText(const Text& text, PlanePoint at, double height, double rotation, Argb colour,
                            const Placement& toPixels) {
    double pixels = height * toPixels.LargerScale();
    PlanePoint pixel = toPixels(at);
    double reach = pixels * double(text.characters.size() + 1);
    if (options_.isCoarse || !(pixels > 0.2 && pixels < mostText) || !part_.Grown(reach).Holds(pixel)) return;
    if (pixels < leastText && text.anchor != TextAnchor::Diagonal) {
        double length = 0.6 * height * double(text.characters.size());
        PlanePoint end = toPixels({at.x + std::cos(rotation) * length, at.y + std::sin(rotation) * length});
        PlanePoint line[] = {pixel, end};
        return Stroke(line, Pen{WithAlpha(colour, 0x60)});
    }
    DrawLetters(text, at, height, rotation, colour, toPixels);
}

void ItemPainter::DrawLetters(const Text& text, PlanePoint at, double height, double rotation, Argb colour,
                              const Placement& toPixels) {
    UseFont();
    QString characters = QString::fromUtf8(text.characters.data(), qsizetype(text.characters.size()));
    double width = QFontMetricsF(font_).horizontalAdvance(characters) / fontPixels;
    if (text.anchor == TextAnchor::Diagonal) height /= std::hypot(width, 1);
    bool hangs = text.anchor == TextAnchor::TopLeft || text.anchor == TextAnchor::TopCentre;
    double unit = height / fontPixels;
    PlanePoint along = {std::cos(rotation), std::sin(rotation)};
    // The painter's y axis points down, the ground's y axis points up.
    Placement letters =
        toPixels.After({{along.x * unit, along.y * unit}, {along.y * unit, -along.x * unit}, at});
    painter_.save();
    painter_.setTransform(QTransform(letters.xAxis.x, letters.xAxis.y, letters.yAxis.x, letters.yAxis.y,
                                     letters.origin.x, letters.origin.y),
                          true);
    painter_.setPen(ColourOf(colour));
    painter_.drawText(QPointF(text.anchor == TextAnchor::TopCentre ? -width * fontPixels / 2 : 0,
                              hangs ? topToBaseline * fontPixels : 0),
                      characters);
    painter_.restore();
}

void ItemPainter::PaintPatternText(const PatternText& text, double height, Argb colour) {
    if (height < leastText) return;
    UseFont();
    QString characters = QString::fromUtf8(text.text.data(), qsizetype(text.text.size()));
    QRectF ink = QFontMetricsF(font_).tightBoundingRect(characters);
    painter_.save();
    painter_.translate(text.middle.x, text.middle.y);
    painter_.rotate(text.angle * util::degreesPerRadian);
    painter_.scale(height / fontPixels, height / fontPixels);
    painter_.setPen(ColourOf(colour));
    painter_.drawText(-ink.center(), characters);
    painter_.restore();
}

}  // namespace vexlator::render
