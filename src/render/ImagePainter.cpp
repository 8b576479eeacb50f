// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/ImagePainter.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QTransform>
#include <algorithm>
#include <cmath>

namespace vexlator::render {

namespace {

/// Decoding to a smaller size costs less time and memory than making a whole image smaller.
QImage Decode(const Image& image, QSize size) {
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(image.jpeg.data()),
                                               static_cast<qsizetype>(image.jpeg.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "jpeg");
    if (size.width() < image.width || size.height() < image.height) reader.setScaledSize(size);
    return reader.read();
}

/// The picture's pixels of an image that stands upright.
QRectF UprightBox(const Image& image, const Placement& toPixels) {
    return {toPixels.origin.x, toPixels.origin.y, toPixels.xAxis.x * image.width,
            toPixels.yAxis.y * image.height};
}

bool IsUpright(const Placement& toPixels) {
    return toPixels.xAxis.y == 0 && toPixels.yAxis.x == 0 && toPixels.xAxis.x > 0 && toPixels.yAxis.y > 0;
}

bool Meets(const PixelBox& part, const Image& image, const Placement& toPixels) {
    auto corners = CornersOf(image, toPixels);
    Box box = BoxAround(corners);
    return box.minX < part.right && box.maxX > part.left && box.minY < part.bottom && box.maxY > part.top;
}

/// An upright image that is not enlarged: its edges are moved to whole pixels, as those of its neighbours
/// are.
bool PaintSmall(QPainter& painter, const Image& image, const QRectF& box, double finer) {
    int left = qRound(box.left()), top = qRound(box.top());
    QSize size(qRound(box.right()) - left, qRound(box.bottom()) - top);
    if (size.isEmpty()) return true;
    QSize wanted(std::min(image.width, static_cast<int>(std::lround(size.width() * finer))),
                 std::min(image.height, static_cast<int>(std::lround(size.height() * finer))));
    QImage decoded = Decode(image, wanted);
    if (decoded.isNull()) return false;
    painter.drawImage(QRect({left, top}, size), decoded);
    return true;
}

/// The image's pixels that can be seen, with those beside them, which smoothing needs.
QRect SeenPixels(const PixelBox& part, const QSize& image, const QTransform& toPixels) {
    QRectF seen =
        toPixels.inverted().mapRect(QRectF(QPointF(part.left, part.top), QPointF(part.right, part.bottom)));
    return seen.adjusted(-2, -2, 2, 2).intersected(QRectF({0, 0}, image)).toAlignedRect();
}

bool PaintTurnedOrLarge(QPainter& painter, const PixelBox& part, const Image& image,
                        const Placement& toPixels, double finer) {
    double share = std::min(1.0, toPixels.LargerScale() * finer);
    QImage decoded = Decode(image, QSize(std::max(1, static_cast<int>(std::ceil(image.width * share))),
                                         std::max(1, static_cast<int>(std::ceil(image.height * share)))));
    if (decoded.isNull()) return false;
    QTransform placed(toPixels.xAxis.x, toPixels.xAxis.y, toPixels.yAxis.x, toPixels.yAxis.y,
                      toPixels.origin.x, toPixels.origin.y);
    placed.scale(double(image.width) / decoded.width(), double(image.height) / decoded.height());
    QRect seen = SeenPixels(part, decoded.size(), placed);
    painter.setRenderHint(QPainter::Antialiasing, false);  // soft edges would leave gaps
    painter.setTransform(placed, true);
    painter.drawImage(seen.topLeft(), decoded, seen);
    return true;
}

}  // namespace

bool PaintImage(QPainter& painter, const PixelBox& part, const Image& image, const Placement& toPixels,
                double finer) {
    if (!Meets(part, image, toPixels)) return true;
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    bool isSmall = IsUpright(toPixels) && toPixels.LargerScale() <= 1;
    bool isPainted = isSmall ? PaintSmall(painter, image, UprightBox(image, toPixels), finer)
                             : PaintTurnedOrLarge(painter, part, image, toPixels, finer);
    painter.restore();
    return isPainted;
}

}  // namespace vexlator::render
