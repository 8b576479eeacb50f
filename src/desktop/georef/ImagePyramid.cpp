// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/georef/ImagePyramid.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>

namespace vexlator::desktop {

namespace {

constexpr int smallestSide = 256;                              ///< of the last level
constexpr std::int64_t mostPixels = std::int64_t{1} << 30;     // four times 16,384 x 16,384
constexpr int mostMegabytes = 4 * (mostPixels / 1024 / 1024);  // decoded

/// Ends a reader that cannot be told to stop.
class StoppableFile : public QFile {
public:
    StoppableFile(const QString& path, std::stop_token stop) : QFile(path), stop_(std::move(stop)) {}

protected:
    qint64 readData(char* data, qint64 most) override {
        return stop_.stop_requested() ? -1 : QFile::readData(data, most);
    }

private:
    std::stop_token stop_;
};

QImage MakeImage(QSize size, QImage::Format format) {
    QImage image(size, format);
    if (image.isNull()) throw std::bad_alloc();
    return image;
}

/// The means of the four channels; halves are rounded down, or up.
std::uint32_t MeanDown(std::uint32_t a, std::uint32_t b) {
    return (a & b) + (((a ^ b) & 0xfefefefeU) >> 1);
}
std::uint32_t MeanUp(std::uint32_t a, std::uint32_t b) {
    return (a | b) - (((a ^ b) & 0xfefefefeU) >> 1);
}

/// One row of two. Rounding up and down in turn keeps the image as bright as it is.
template <typename Pixel>
void HalveRow(const Pixel* upper, const Pixel* lower, int width, Pixel* half) {
    for (std::ptrdiff_t x = 0; x < width / 2; ++x)
        half[x] = static_cast<Pixel>(
            MeanUp(MeanDown(upper[2 * x], upper[2 * x + 1]), MeanDown(lower[2 * x], lower[2 * x + 1])));
    if (width % 2 != 0) half[width / 2] = static_cast<Pixel>(MeanUp(upper[width - 1], lower[width - 1]));
}

template <typename Pixel>
QImage Halved(const QImage& image, const std::stop_token& stop) {
    QImage half = MakeImage({(image.width() + 1) / 2, (image.height() + 1) / 2}, image.format());
    auto row = [&](int y) {
        return reinterpret_cast<const Pixel*>(image.constScanLine(std::min(y, image.height() - 1)));
    };
    for (int y = 0; y < half.height(); ++y) {
        if (stop.stop_requested()) throw platform::Stopped();
        HalveRow(row(2 * y), row(2 * y + 1), image.width(), reinterpret_cast<Pixel*>(half.scanLine(y)));
    }
    return half;
}

/// Grey or four channels, which are painted as they are.
QImage Paintable(QImage image) {
    switch (image.format()) {
        case QImage::Format_RGB32:
        case QImage::Format_Grayscale8:
        case QImage::Format_ARGB32_Premultiplied:
            return image;
        default:
            break;
    }
    bool isGrey = !image.hasAlphaChannel() && image.depth() <= 8 && image.allGray();
    QImage::Format format = isGrey                    ? QImage::Format_Grayscale8
                            : image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                      : QImage::Format_RGB32;
    image.convertTo(format);
    if (image.isNull()) throw std::bad_alloc();
    return image;
}

/// What is needed of a level to paint a part of it; copies nothing. The painter's numbers would end where a
/// long image goes on.
QImage Window(const QImage& level, const QRect& part) {
    const uchar* first = level.constScanLine(part.y()) + qsizetype{part.x()} * level.depth() / 8;
    return {first, part.width(), part.height(), level.bytesPerLine(), level.format()};
}

}  // namespace

ImagePyramid::ImagePyramid(QImage image, const std::stop_token& stop) {
    levels_.push_back(Paintable(std::move(image)));
    while (std::max(levels_.back().width(), levels_.back().height()) > smallestSide) {
        const QImage& last = levels_.back();
        bool isGrey = last.format() == QImage::Format_Grayscale8;
        QImage half = isGrey ? Halved<std::uint8_t>(last, stop) : Halved<std::uint32_t>(last, stop);
        levels_.push_back(std::move(half));
    }
}

void ImagePyramid::Paint(QPainter& painter, const QRectF& target, const QRectF& part) const {
    double shrink = part.width() / target.width(), scale = 1;
    std::size_t number = 0;
    for (; shrink >= 2 && number + 1 < levels_.size(); ++number) {
        shrink /= 2;
        scale /= 2;
    }
    const QImage& level = levels_[number];
    QRectF source(part.x() * scale, part.y() * scale, part.width() * scale, part.height() * scale);
    QRect around = source.toAlignedRect().adjusted(-2, -2, 2, 2);
    around.setLeft(around.left() & ~3);  // grey pixels begin at whole words
    around &= level.rect();
    if (around.isEmpty()) return;
    painter.setRenderHint(QPainter::SmoothPixmapTransform, shrink > 1);
    painter.drawImage(target, Window(level, around), source.translated(-around.topLeft()));
}

qsizetype ImagePyramid::Bytes() const {
    qsizetype bytes = 0;
    for (const QImage& level : levels_) bytes += level.sizeInBytes();
    return bytes;
}

std::shared_ptr<const ImagePyramid> ReadImage(const std::string& path, const std::stop_token& stop) {
    std::string name = platform::NativePath(platform::FindExisting(path));
    StoppableFile file(QString::fromStdString(name), stop);
    auto fail = [&](const QString& reason) -> platform::ReadError {
        return {name, "", reason.toStdString()};
    };
    if (!file.open(QIODevice::ReadOnly)) throw fail(file.errorString());
    QImageReader::setAllocationLimit(mostMegabytes);
    QImageReader reader(&file);
    QSize size = reader.size();
    if (std::int64_t{size.width()} * size.height() > mostPixels)
        throw fail(
            QStringLiteral("%1 x %2 pixels are too many to be shown").arg(size.width()).arg(size.height()));
    QImage image;
    bool isRead = reader.read(&image);
    if (stop.stop_requested()) throw platform::Stopped();
    if (!isRead || image.isNull()) throw fail(reader.errorString());
    try {
        return std::make_shared<ImagePyramid>(std::move(image), stop);
    } catch (const std::bad_alloc&) {
        throw fail(QStringLiteral("there is not enough memory to show it"));
    }
}

}  // namespace vexlator::desktop
