// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/ItemPainter.h"

#include "render/ImagePainter.h"
#include "util/Angles.h"

#include <QFontMetricsF>
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
/// Pixels of an image for a pixel of the view, in each direction, on devices with finer pixels.
constexpr double pixelsOnPaper = 3;

/// Millimetres between the marks of a hatch, and the pixels below which they are not drawn.
constexpr double hatchMillimetres = 4, leastHatch = 4;

/// The same number for the same place, and another one for its neighbours.
std::uint32_t HashOf(std::int64_t row, std::int64_t column) {
    auto mixed = static_cast<std::uint64_t>(row) * 0x9E3779B97F4A7C15U + static_cast<std::uint64_t>(column);
    mixed = (mixed ^ mixed >> 31) * 0xBF58476D1CE4E5B9U;
    return static_cast<std::uint32_t>(mixed >> 32);
}

QColor ColourOf(Argb colour) {
    return QColor::fromRgba(colour);
}

/// A part of a hatch that can be repeated. Qt's own patterns have the same pixels on every screen, and are
/// too fine on sharp ones.
QImage HatchTile(const Pen& pen, double scale) {
    constexpr double spacing = 8;  // pixels at a scale of one
    const int side = std::max(2, static_cast<int>(std::lround(spacing * scale)));
    QImage tile(side, side, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ColourOf(pen.fill), std::max(1.0, scale), Qt::SolidLine, Qt::FlatCap));
    // On the middle of a pixel.
    const double middle = std::floor(side / 2.0) + 0.5, end = side;
    bool isBoth = pen.hatch == Hatch::Cross, areDiagonals = pen.hatch == Hatch::DiagonalCross;
    if (isBoth || pen.hatch == Hatch::Horizontal) painter.drawLine(QLineF(0, middle, end, middle));
    if (isBoth || pen.hatch == Hatch::Vertical) painter.drawLine(QLineF(middle, 0, middle, end));
    // The corners belong to the lines of the neighbours.
    for (double shift : {-end, 0.0, end}) {
        if (areDiagonals || pen.hatch == Hatch::Diagonal)
            painter.drawLine(QLineF(shift - end, 2 * end, shift + 2 * end, -end));
        if (areDiagonals) painter.drawLine(QLineF(shift - end, -end, shift + 2 * end, 2 * end));
    }
    return tile;
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
        case ItemKind::Image:
            return PaintImage(scene, item, pen, toPixels);
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

QPointF ItemPainter::PointFor(PlanePoint pixel) const {
    constexpr double parts = 32;  // finer than any printer
    if (thinLines_) return {pixel.x, pixel.y};
    return {std::round(pixel.x * parts) / parts, std::round(pixel.y * parts) / parts};
}

// --- Lines

void ItemPainter::PaintCourse(const Pen& pen, const Placement& toPixels) {
    if (pen.line == 0 || course_.empty()) return;
    if (pen.lineType == 0) return Stroke(course_, pen);
    const LineType& type = drawing::LineTypeOf(pen.lineType);
    double pixelsPerUnit = type.onGround ? toPixels.LargerScale() : options_.pixelsPerMillimetre;
    Pattern pattern(type, pixelsPerUnit);
    if (!pattern.IsVisible()) return Stroke(course_, pen);
    PaintPattern(pattern, pen, pixelsPerUnit);
}

void ItemPainter::PaintPattern(const Pattern& pattern, const Pen& pen, double pixelsPerUnit) {
    constexpr double textHeight = 3;  // in the pattern's units; a dash has ten
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
    // Round ends would fill the gaps of a dotted line.
    Qt::PenCapStyle ends = pen.lineType == 0 ? Qt::RoundCap : Qt::FlatCap;
    painter_.setPen(QPen(ColourOf(pen.line), width, Qt::SolidLine, ends, Qt::RoundJoin));
    ForEachPartIn(part_.Grown(width + 1), course, piece_, [&](const Course& part) {
        polygon_.clear();
        for (PlanePoint p : part) polygon_.append(PointFor(p));
        painter_.drawPolyline(polygon_);
    });
}

void ItemPainter::PaintDot(PlanePoint pixel, const Pen& pen) {
    if (pen.marker != Marker::Usual) return PaintMarker(pixel, pen);
    double size = dotMillimetres * options_.pixelsPerMillimetre;
    if (thinLines_)
        return thinLines_->DrawDot(pixel, std::max(1, static_cast<int>(std::lround(size))), pen.line);
    if (!part_.Grown(size).Holds(pixel)) return;
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(ColourOf(pen.line));
    painter_.drawEllipse(PointFor(pixel), size / 2, size / 2);
}

/// On an image a marker is drawn once, then copied to whole pixels: drawings have many of the same.
void ItemPainter::PaintMarker(PlanePoint pixel, const Pen& pen) {
    double size = WidthOf(pen);
    if (!part_.Grown(size).Holds(pixel)) return;
    if (thinLines_) {
        const QImage& stamp = StampOf(pen, size);
        double half = stamp.width() / 2.0;
        return painter_.drawImage(QPointF(std::round(pixel.x - half), std::round(pixel.y - half)), stamp);
    }
    painter_.save();
    painter_.translate(pixel.x, pixel.y);
    painter_.scale(size, size);
    painter_.fillPath(MarkerPath(pen.marker), ColourOf(pen.line));
    painter_.restore();
}

const QImage& ItemPainter::StampOf(const Pen& pen, double size) {
    if (!stamp_.isNull() && stampPen_ == pen) return stamp_;
    stampPen_ = pen;
    int side = static_cast<int>(std::ceil(size)) + 2;
    stamp_ = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    stamp_.fill(Qt::transparent);
    QPainter painter(&stamp_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(side / 2.0, side / 2.0);
    painter.scale(size, size);
    painter.fillPath(MarkerPath(pen.marker), ColourOf(pen.line));
    return stamp_;
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
    if (pen.fill != 0) {
        BeginFill(pen);
        FillRing();
    }
    PaintCourse(pen, toPixels);
}

// --- Areas

void ItemPainter::PaintArea(const Scene& scene, const Scene::Item& area, const Pen& pen,
                            const Placement& toPixels) {
    std::span<const PlanePoint> vertices = scene.VerticesOf(area);
    std::span<const std::uint32_t> ends = scene.RingEndsOf(area);
    if (pen.fill != 0) {
        BeginFill(pen);
        if (ends.size() > 1) painter_.drawPath(PathOf(scene, area, toPixels));
    }
    for (std::size_t ring = 0; ring < ends.size(); ++ring) {
        std::size_t begin = ring == 0 ? 0 : ends[ring - 1];
        Project(vertices.subspan(begin, ends[ring] - begin), toPixels, tolerance_, true, course_);
        if (course_.empty()) continue;
        if (pen.fill != 0 && ends.size() == 1) FillRing();
        PaintCourse(pen, toPixels);
    }
    if (pen.isHatched) Hatch(PathOf(scene, area, toPixels), toPixels(vertices[0]), pen);
}

void ItemPainter::BeginFill(const Pen& pen) {
    QBrush brush(ColourOf(pen.fill));
    if (pen.hatch != Hatch::Solid)
        brush.setTextureImage(
            HatchTile(pen, options_.pixelsPerMillimetre / PaintOptions{}.pixelsPerMillimetre));
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(brush);
}

/// Fills `course_`.
void ItemPainter::FillRing() {
    ClipRing(part_.Grown(2), course_, piece_, work_);
    polygon_.clear();
    for (PlanePoint p : piece_) polygon_.append(PointFor(p));
    painter_.drawPolygon(polygon_, Qt::OddEvenFill);
}

QPainterPath ItemPainter::PathOf(const Scene& scene, const Scene::Item& area, const Placement& toPixels) {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    std::size_t begin = 0;
    for (std::uint32_t end : scene.RingEndsOf(area)) {
        Project(scene.VerticesOf(area).subspan(begin, end - begin), toPixels, tolerance_, true, course_);
        begin = end;
        ClipRing(part_.Grown(2), course_, piece_, work_);
        polygon_.clear();
        for (PlanePoint p : piece_) polygon_.append(PointFor(p));
        path.addPolygon(polygon_);
        path.closeSubpath();
    }
    return path;
}

/// Marks in the cells of a grid that begins at the anchor, so that every part of a picture has the same ones.
void ItemPainter::Hatch(const QPainterPath& path, PlanePoint anchor, const Pen& pen) {
    const double cell = hatchMillimetres * options_.pixelsPerMillimetre;
    const QRectF box = path.boundingRect();
    if (cell < leastHatch || box.isEmpty()) return;
    auto first = [&](double from, double zero) {
        return static_cast<std::int64_t>(std::floor((from - zero) / cell));
    };
    painter_.save();
    painter_.setClipPath(path, Qt::IntersectClip);
    QPen mark(ColourOf(WithAlpha(pen.line, 0xA0)), cell / 18);
    painter_.setPen(mark);
    painter_.setBrush(Qt::NoBrush);
    for (std::int64_t row = first(box.top(), anchor.y); row <= first(box.bottom(), anchor.y); ++row)
        for (std::int64_t column = first(box.left(), anchor.x); column <= first(box.right(), anchor.x);
             ++column) {
            std::uint32_t chance = HashOf(row, column);
            double x = (double(column) + 0.2 + 0.6 * double(chance & 0xFF) / 0xFF) * cell;
            double y = (double(row) + 0.2 + 0.6 * double(chance >> 8 & 0xFF) / 0xFF) * cell;
            DrawHatchMark({anchor.x + x, anchor.y + y}, chance >> 16, cell);
        }
    painter_.restore();
}

/// A small triangle, else two dots.
void ItemPainter::DrawHatchMark(PlanePoint at, std::uint32_t chance, double size) {
    if (chance % 3 == 0) {
        QPolygonF triangle;
        for (int corner = 0; corner < 3; ++corner) {
            double angle = chance + corner * 2 * std::numbers::pi / 3;
            triangle.append({at.x + std::cos(angle) * size * 0.17, at.y + std::sin(angle) * size * 0.17});
        }
        painter_.drawPolygon(triangle);
        return;
    }
    for (double off : {0.0, 0.35}) {
        QPointF dot(at.x + off * size, at.y + off * size * 0.6);
        painter_.drawLine(dot, dot + QPointF(size * 0.03, 0));
    }
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

void ItemPainter::PaintImage(const Scene& scene, const Scene::Item& item, const Pen& pen,
                             const Placement& toPixels) {
    std::span<const PlanePoint> vertices = scene.VerticesOf(item);
    const Image& image = scene.ImageOf(item);
    Placement placement = toPixels.After({vertices[1], vertices[2], vertices[0]});
    if (render::PaintImage(painter_, part_, image, placement, thinLines_ ? 1 : pixelsOnPaper)) return;
    Project(CornersOf(image, placement), Placement(), tolerance_, true, course_);
    BeginFill(pen);
    FillRing();
    PaintCourse(pen, toPixels);
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
