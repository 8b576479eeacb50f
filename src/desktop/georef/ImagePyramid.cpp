// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/georef/ImagePyramid.h"

#include "platform/Files.h"
#include "platform/FreeMemory.h"
#include "platform/Paths.h"
#include "platform/Signals.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <stdexcept>
#include <utility>

namespace vexlator::desktop {

namespace {

constexpr int smallestSide = 256;                              ///< of the last level
constexpr std::int64_t mostPixels = std::int64_t{1} << 30;     // four times 16,384 x 16,384
constexpr int mostMegabytes = 4 * (mostPixels / 1024 / 1024);  // decoded

/// Ends a reader that cannot be told to stop, and knows whether it wanted more than there is: the readers of
/// JPEG and BMP then return an image whose lower part is grey or noise, and say nothing. They ask without a
/// buffer in between, which would ask ahead.
class ImageSource : public QFile {
public:
    ImageSource(const QString& path, std::stop_token stop) : QFile(path), stop_(std::move(stop)) {}
    bool Open() { return open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
    void BeginPixels() { gaveLess_ = gaveNothing_ = false; }
    /// The reader of JPEG takes what it gets, until nothing comes.
    bool IsCutOff(const QByteArray& format) const {
        return (format == "jpeg" && gaveNothing_) || (format == "bmp" && gaveLess_);
    }

protected:
    qint64 readData(char* data, qint64 most) override {
        if (stop_.stop_requested()) return -1;
        qint64 count = QFile::readData(data, most);
        gaveLess_ |= count < most;
        gaveNothing_ |= most > 0 && count == 0;
        return count;
    }

private:
    std::stop_token stop_;
    bool gaveLess_ = false, gaveNothing_ = false;
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

namespace {

/// What the image will take with its halves. Readers give images of more than a byte a pixel four bytes.
std::uint64_t BytesFor(QImageReader& reader) {
    QSize size = reader.size();
    bool isGrey =
        reader.imageFormat() == QImage::Format_Grayscale8 || reader.imageFormat() == QImage::Format_Mono;
    return std::uint64_t(size.width()) * std::uint64_t(size.height()) * (isGrey ? 1 : 4) / 3 * 4;
}

constexpr const char* cutOff = "the data is truncated";

/// Before a reader takes memory for what a file only claims to hold. @throws std::runtime_error
void RequireRoom(QImageReader& reader) {
    QSize size = reader.size();
    QString text = QStringLiteral("%1 x %2 pixels").arg(size.width()).arg(size.height());
    if (std::int64_t{size.width()} * size.height() > mostPixels)
        throw std::runtime_error((text + " are too many to be shown").toStdString());
    std::uint64_t needed = size.isEmpty() ? 0 : BytesFor(reader), left = platform::FreeMemory();
    if (needed > left)
        throw std::runtime_error(
            (text + QStringLiteral(" need %1 MB of memory, %2 MB are free").arg(needed >> 20).arg(left >> 20))
                .toStdString());
}

QImage Decoded(ImageSource& source, const std::stop_token& stop) {
    QImageReader::setAllocationLimit(mostMegabytes);
    QImageReader reader(&source);
    RequireRoom(reader);
    QByteArray format = reader.format();
    // Every block of a JPEG takes at least one bit. Its reader would make grey pixels of what is not there.
    constexpr std::int64_t pixelsOfByte = 512;
    std::int64_t pixels = std::int64_t{reader.size().width()} * reader.size().height();
    if (format == "jpeg" && source.size() < pixels / pixelsOfByte) throw std::runtime_error(cutOff);
    source.BeginPixels();
    QImage image;
    bool isRead = reader.read(&image);
    if (stop.stop_requested()) throw platform::Stopped();
    if (!isRead || image.isNull()) throw std::runtime_error(reader.errorString().toStdString());
    if (source.IsCutOff(format)) throw std::runtime_error(cutOff);
    return image;
}

}  // namespace

std::shared_ptr<const ImagePyramid> ReadImage(const std::string& path, const std::stop_token& stop) {
    std::string name = platform::NativePath(platform::FindExisting(path));
    ImageSource source(QString::fromStdString(name), stop);
    if (!source.Open()) throw platform::ReadError(name, "", source.errorString().toStdString());
    try {
        return std::make_shared<ImagePyramid>(Decoded(source, stop), stop);
    } catch (const std::bad_alloc&) {
        throw platform::ReadError(name, "", "there is not enough memory to show it");
    } catch (const std::exception& error) {
        throw platform::ReadError(name, "", error.what());
    }
}

}  // namespace vexlator::desktop
