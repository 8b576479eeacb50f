// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfpicture/Picture.h"

#include "platform/Files.h"
#include "platform/Signals.h"
#include "render/Furniture.h"
#include "render/Painter.h"
#include "render/UsualExtent.h"
#include "util/Paths.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <new>

namespace vexlator::vdfpicture {

namespace {

constexpr double pixelsPerInch = 96;

/// With a margin, as a share of its longer side, so that nothing touches the edge.
render::Box WithMargin(const render::Box& box, double share) {
    double margin = share * std::max(box.maxX - box.minX, box.maxY - box.minY);
    return {box.minX - margin, box.minY - margin, box.maxX + margin, box.maxY + margin};
}

/// The shown extent, and a line about contents outside of it; "" for none.
struct Extent {
    render::Box box;
    std::string note;
};

/// A picture without furniture shows everything; a map shows the main contents.
Extent ExtentOf(const render::Scene& scene, const Options& options) {
    if (options.extent) return {*options.extent, ""};
    if (!options.hasFurniture) return {WithMargin(scene.Extents(), 0.01), ""};
    render::UsualExtent usual = FindUsualExtent(scene);
    std::string note;
    if (usual.outside > 0)
        note = std::to_string(usual.outside) + (usual.outside == 1 ? " feature is" : " features are") +
               " outside, far from all others";
    return {WithMargin(usual.extent, 0.04), note};
}

class Picture {
public:
    Picture(const render::Scene& scene, const Options& options, const Extent& extent)
        : scene_(scene),
          options_(options),
          furniture_(scene, util::BaseNameOf(options.source), extent.note, options.width, options.height),
          area_(options.hasFurniture ? furniture_.MapArea()
                                     : render::PixelArea{0, 0, options.width, options.height}),
          view_(extent.box, area_.width, area_.height) {}

    QByteArray Bytes() {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        if (options_.format == Format::Png) WritePng(buffer);
        if (options_.format == Format::Svg) WriteSvg(buffer);
        if (options_.format == Format::Pdf) WritePdf(buffer);
        return buffer.data();
    }

private:
    static QImage Paper(int width, int height) {
        QImage image(width, height, QImage::Format_RGB32);
        if (image.isNull()) throw std::bad_alloc();
        image.fill(Qt::white);
        return image;
    }
    void WritePng(QBuffer& buffer) {
        QImage map = Paper(area_.width, area_.height);
        PaintScene(scene_, view_, map);
        QImageWriter writer(&buffer, "png");
        // Twice as fast as the default. The files are a few percent larger.
        writer.setCompression(20);
        writer.write(options_.hasFurniture ? Framed(map) : map);
    }
    QImage Framed(const QImage& map) {
        QImage whole = Paper(options_.width, options_.height);
        QPainter painter(&whole);
        painter.drawImage(area_.left, area_.top, map);
        furniture_.Paint(view_, painter);
        return whole;
    }
    void WriteSvg(QBuffer& buffer) {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setResolution(int(pixelsPerInch));
        generator.setSize({options_.width, options_.height});
        generator.setViewBox(QRect(0, 0, options_.width, options_.height));
        generator.setTitle(QString::fromStdString(util::BaseNameOf(options_.source)));
        QPainter painter(&generator);
        painter.fillRect(QRect(0, 0, options_.width, options_.height), Qt::white);
        PaintAll(painter);
    }
    void WritePdf(QBuffer& buffer) {
        QPdfWriter writer(&buffer);
        writer.setPageSize(
            QPageSize(QSizeF(options_.width, options_.height) / pixelsPerInch, QPageSize::Inch));
        writer.setPageMargins({});
        writer.setTitle(QString::fromStdString(util::BaseNameOf(options_.source)));
        writer.setCreator(QStringLiteral("vdfpicture"));
        QPainter painter(&writer);
        painter.scale(writer.resolution() / pixelsPerInch, writer.resolution() / pixelsPerInch);
        PaintAll(painter);
    }
    void PaintAll(QPainter& painter) {
        painter.save();
        painter.translate(area_.left, area_.top);
        PaintScene(scene_, view_, painter);
        painter.restore();
        if (options_.hasFurniture) furniture_.Paint(view_, painter);
    }

    const render::Scene& scene_;
    const Options& options_;
    render::Furniture furniture_;
    render::PixelArea area_;
    render::View view_;
};

}  // namespace

void WritePicture(const render::Scene& scene, const Options& options,
                  const std::function<void(std::string_view)>& tell) {
    Extent extent = ExtentOf(scene, options);
    if (!extent.note.empty()) tell(options.source + ": " + extent.note + "; --extent shows more");
    QByteArray bytes = Picture(scene, options, extent).Bytes();
    // Before this point a signal leaves nothing behind.
    platform::StopOnSignals();
    platform::OutputFile file(options.target);
    file.Write(std::string_view(bytes.data(), std::size_t(bytes.size())));
    file.Commit();
}

}  // namespace vexlator::vdfpicture
