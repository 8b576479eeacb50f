// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/paint/PagePainter.h"

#include "mapbook/paint/ReportPage.h"
#include "mapbook/paint/TitleBlock.h"
#include "render/MapParts.h"
#include "util/Numbers.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <new>

namespace vexlator::mapbook {

namespace {

/// Millimetres.
constexpr double smallText = 2.1, frameLine = 0.3, numberSize = 4, arrowSize = 2.2;

/// A map of more items is an image in a PDF file too, because readers would take seconds to show its page. It
/// has this many times the pixels of the page.
constexpr std::size_t mostDrawnItems = 50'000;
constexpr int fineImage = 2;
/// Lies over the background, so that the drawing stands out.
constexpr QColor veil(255, 255, 255, 130);

QColor FrameColour() {
    return {0x1F, 0x4E, 0x79};
}

render::PixelArea AreaOf(const PaperBox& box, double pixelsPerMillimetre) {
    auto pixel = [&](double millimetres) {
        return static_cast<int>(std::lround(millimetres * pixelsPerMillimetre));
    };
    return {pixel(box.left), pixel(box.top), pixel(box.right) - pixel(box.left),
            pixel(box.bottom) - pixel(box.top)};
}

QRectF RectOf(const PaperBox& box, double pixelsPerMillimetre) {
    return {box.left * pixelsPerMillimetre, box.top * pixelsPerMillimetre, box.Width() * pixelsPerMillimetre,
            box.Height() * pixelsPerMillimetre};
}

render::View ViewOf(const BookContent& content, const PageLayout& layout, const render::PixelArea& map,
                    double pixelsPerMillimetre) {
    const drawing::Box& ground = layout.ground;
    double scale = layout.MillimetresPerUnit(MetresPerUnit(content.scene)) * pixelsPerMillimetre;
    return {
        {ground.minX / 2 + ground.maxX / 2, ground.minY / 2 + ground.maxY / 2}, scale, map.width, map.height};
}

QImage White(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    if (image.isNull()) throw std::bad_alloc();
    image.fill(Qt::white);
    return image;
}

/// A text with a light edge, so that it can be read on any map.
void DrawOnMap(QPainter& painter, QPointF middle, const QString& text, double size) {
    QFont font = render::MapFont(size, true);
    painter.setFont(font);
    QFontMetricsF metrics(font);
    double width = metrics.horizontalAdvance(text) + size * 0.6, height = size * 1.3;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 215));
    painter.drawRoundedRect(QRectF(middle.x() - width / 2, middle.y() - height / 2, width, height), size / 4,
                            size / 4);
    painter.setPen(FrameColour());
    render::DrawCentred(painter, middle, text);
}

/// With the scale of the other numbers on the page: grid metres with two decimals, degrees with six.
std::string CoordinateText(const drawing::Box& box, bool inDegrees) {
    int decimals = inDegrees ? 6 : 2;
    return util::FormatFixed(box.minX / 2 + box.maxX / 2, decimals) + ", " +
           util::FormatFixed(box.minY / 2 + box.maxY / 2, decimals);
}

std::string ScaleText(double denominator) {
    std::string text = util::FormatShortest(denominator);
    if (denominator >= 1000 && denominator == std::floor(denominator))
        text = util::GroupedCount(static_cast<std::uint64_t>(denominator));
    return "1:" + text;
}

}  // namespace

PagePainter::PagePainter(const BookContent& content, const BookPage& page)
    : content_(content),
      page_(page),
      pixelsPerMillimetre_(longerSide / std::max(page.layout.width, page.layout.height)),
      width_(static_cast<int>(std::lround(page.layout.width * pixelsPerMillimetre_))),
      height_(static_cast<int>(std::lround(page.layout.height * pixelsPerMillimetre_))),
      map_(AreaOf(page.layout.map, pixelsPerMillimetre_)),
      view_(ViewOf(content, page.layout, map_, pixelsPerMillimetre_)) {}

render::PaintOptions PagePainter::Options() const {
    render::PaintOptions options;
    options.pixelsPerMillimetre = pixelsPerMillimetre_;
    options.threads = 1;
    return options;
}

QImage PagePainter::Image() const {
    QImage page = White(width_, height_);
    QPainter painter(&page);
    if (page_.kind == PageKind::Report) {
        PaintReport(painter, content_.plan, *content_.report, page_, pixelsPerMillimetre_);
    } else {
        painter.drawImage(map_.left, map_.top, MapImage(1));
        PaintAround(painter);
    }
    painter.end();
    constexpr double millimetresPerMetre = 1000;
    page.setDotsPerMeterX(static_cast<int>(std::lround(pixelsPerMillimetre_ * millimetresPerMetre)));
    page.setDotsPerMeterY(page.dotsPerMeterX());
    return page;
}

void PagePainter::Paint(QPainter& painter) const {
    if (page_.kind == PageKind::Report)
        return PaintReport(painter, content_.plan, *content_.report, page_, pixelsPerMillimetre_);
    painter.save();
    painter.setClipRect(QRectF(map_.left, map_.top, map_.width, map_.height));
    painter.translate(map_.left, map_.top);
    PaintMap(painter);
    painter.restore();
    PaintAround(painter);
}

void PagePainter::PaintMap(QPainter& painter) const {
    if (content_.scene.ItemsIn(view_.Ground()).size() > mostDrawnItems) {
        painter.setRenderHint(QPainter::LosslessImageRendering);
        painter.drawImage(QRectF(0, 0, map_.width, map_.height), MapImage(fineImage));
        return;
    }
    if (content_.background) PaintScene(*content_.background, view_, painter, Options());
    PaintFetched(painter, {0, 0, double(map_.width), double(map_.height)});
    PaintScene(content_.scene, view_, painter, Options());
}

/// The fetched map, then the veil over every kind of background.
void PagePainter::PaintFetched(QPainter& painter, const QRectF& map) const {
    if (!page_.backgroundImage.empty())
        painter.drawImage(map, QImage(QString::fromStdString(page_.backgroundImage)));
    if (content_.background || !page_.backgroundImage.empty()) painter.fillRect(map, veil);
}

QImage PagePainter::MapImage(int factor) const {
    QImage map = White(map_.width * factor, map_.height * factor);
    render::View view(view_.Centre(), view_.Scale() * factor, map.width(), map.height());
    render::PaintOptions options = Options();
    options.pixelsPerMillimetre *= factor;
    // Painting of the image itself would be faster, but would have thinner lines than the PDF file.
    QPainter painter(&map);
    if (content_.background) PaintScene(*content_.background, view, painter, options);
    PaintFetched(painter, map.rect());
    PaintScene(content_.scene, view, painter, options);
    painter.end();
    return map;
}

void PagePainter::PaintAround(QPainter& painter) const {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.save();
    painter.setClipRect(QRectF(map_.left, map_.top, map_.width, map_.height));
    PaintFrames(painter);
    painter.restore();
    PaintFurniture(painter);
    PaintMarks(painter);
    PaintTitles(painter);
}

// --- On the map

void PagePainter::PaintFrames(QPainter& painter) const {
    if (page_.kind == PageKind::Index) return PaintIndexFrames(painter);
    PaintNeighbours(painter);
}

void PagePainter::PaintIndexFrames(QPainter& painter) const {
    double size = numberSize * pixelsPerMillimetre_;
    auto rectOf = [&](const drawing::Box& ground) {
        render::PlanePoint least = view_.ToPixels()({ground.minX, ground.maxY}),
                           most = view_.ToPixels()({ground.maxX, ground.minY});
        return QRectF(QPointF(least.x + map_.left, least.y + map_.top),
                      QPointF(most.x + map_.left, most.y + map_.top));
    };
    painter.setPen(QPen(FrameColour(), frameLine * pixelsPerMillimetre_));
    QColor tint = FrameColour();
    tint.setAlpha(24);
    painter.setBrush(tint);
    for (const PageFrame& frame : content_.plan.frames) painter.drawRect(rectOf(frame.ground));
    for (const PageFrame& frame : content_.plan.frames) {
        QRectF rect = rectOf(frame.ground);
        double fitting = std::min(size, std::min(rect.width(), rect.height()) * 0.6);
        if (fitting > size / 4) DrawOnMap(painter, rect.center(), QString::number(frame.number), fitting);
    }
}

void PagePainter::PaintNeighbours(QPainter& painter) const {
    render::PlanePoint least = view_.ToPixels()({page_.frame.minX, page_.frame.maxY}),
                       most = view_.ToPixels()({page_.frame.maxX, page_.frame.minY});
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(FrameColour(), frameLine * pixelsPerMillimetre_, Qt::CustomDashLine, Qt::FlatCap));
    QPen pen = painter.pen();
    pen.setDashPattern({12, 4, 2, 4});
    painter.setPen(pen);
    painter.drawRect(QRectF(QPointF(least.x + map_.left, least.y + map_.top),
                            QPointF(most.x + map_.left, most.y + map_.top)));
    const double edge = 7 * pixelsPerMillimetre_, middleX = map_.left + map_.width / 2.0,
                 middleY = map_.top + map_.height / 2.0;
    struct Side {
        const std::optional<int>& number;
        QPointF at;
        double dx, dy;  ///< direction of the arrow
    };
    const Side sides[] = {{page_.neighbours.left, {map_.left + edge, middleY}, -1, 0},
                          {page_.neighbours.right, {map_.left + map_.width - edge, middleY}, 1, 0},
                          {page_.neighbours.top, {middleX, map_.top + edge}, 0, -1},
                          {page_.neighbours.bottom, {middleX, map_.top + map_.height - edge}, 0, 1}};
    for (const Side& side : sides) {
        if (!side.number) continue;
        DrawOnMap(painter, side.at, QString::number(*side.number), numberSize * pixelsPerMillimetre_);
        double size = arrowSize * pixelsPerMillimetre_, off = 3.4 * pixelsPerMillimetre_;
        QPointF tip(side.at.x() + side.dx * (off + size), side.at.y() + side.dy * (off + size));
        QPointF base(side.at.x() + side.dx * off, side.at.y() + side.dy * off);
        QPointF across(side.dy * size * 0.7, side.dx * size * 0.7);
        const QPointF arrow[] = {tip, base + across, base - across};
        painter.setPen(Qt::NoPen);
        painter.setBrush(FrameColour());
        painter.drawPolygon(arrow, 3);
    }
}

// --- Around the map

void PagePainter::PaintFurniture(QPainter& painter) const {
    render::MapParts parts(painter, smallText * pixelsPerMillimetre_, pixelsPerMillimetre_);
    painter.setPen(Qt::black);
    parts.Frame(view_, {double(map_.left), double(map_.top), double(map_.left + map_.width),
                        double(map_.top + map_.height)});
    QRectF area = RectOf(page_.layout.legend, pixelsPerMillimetre_);
    double unit = smallText * pixelsPerMillimetre_;
    painter.setFont(render::MapFont(1.3 * unit, true));
    painter.setPen(Qt::black);
    painter.drawText(QPointF(area.left(), area.top() + 1.3 * unit), QStringLiteral("Legend"));
    render::PixelBox room{area.left(), area.top() + 2.4 * unit, area.right(), area.bottom()};
    std::vector<const render::SceneLayer*> layers = LayersOn(content_.scene, view_.Ground());
    // Names are cut before layers are left out.
    bool isFull = layers.size() > parts.LegendRows(room) * std::size_t(page_.layout.legendColumns);
    parts.Legend(content_.scene, layers, room, page_.layout.legendColumns + (isFull ? 1 : 0));
}

void PagePainter::PaintMarks(QPainter& painter) const {
    QRectF area = RectOf(page_.layout.marks, pixelsPerMillimetre_);
    double unit = smallText * pixelsPerMillimetre_;
    render::MapParts parts(painter, unit, pixelsPerMillimetre_);
    double arrow = 1.5 * unit;  // half of its column
    parts.NorthArrow({area.left() + arrow, area.top()});
    double left = area.left() + 2 * arrow + 2 * unit;
    painter.setPen(Qt::black);
    painter.setFont(render::MapFont(1.7 * unit, true));
    painter.drawText(QPointF(left, area.top() + 1.6 * unit),
                     QString::fromStdString(ScaleText(page_.layout.denominator)));
    parts.ScaleBar(view_, {left, area.top() + 2.6 * unit}, area.right() - left - 2 * unit);
}

void PagePainter::PaintTitles(QPainter& painter) const {
    const JobData& job = content_.plan.titles;
    const PageLayout& layout = page_.layout;
    bool inDegrees = MetresPerUnit(content_.scene) != 1;
    std::string scale = std::string(inDegrees ? "about " : "") + ScaleText(layout.denominator) + " on " +
                        (layout.size == PaperSize::A4 ? "A4" : "A3");
    PaintTitleBlock(painter, RectOf(layout.titles, pixelsPerMillimetre_), pixelsPerMillimetre_,
                    {{{{"Project", job.project, true}}},
                     {{{"Job Description", job.description}}, 2},
                     {{{"Job Name", job.name}, {"Job Creation Date", job.created}}},
                     {{{"Layout", page_.name}, {"Layout Number", page_.count}}},
                     {{{"Scale Guide", scale}, {"Date Produced", content_.plan.date}}},
                     {{{"Centre Coordinate", CoordinateText(page_.frame, inDegrees)}}},
                     {{{"Device", job.device}, {"KeyID", job.keyId}}}});
}

}  // namespace vexlator::mapbook
