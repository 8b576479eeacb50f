// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/Painter.h"

#include "render/ItemPainter.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace vexlator::render {

namespace {

constexpr std::size_t itemsBetweenLooks = 256;
/// A coarse picture has every item of this size in pixels or larger, and one of this number of smaller items.
constexpr double largeItem = 16;
constexpr std::size_t coarseShare = 16;
/// Bands take different times. Several bands per thread balance that.
constexpr int bandsPerThread = 3;

/// The ground shown by a part of the picture, with a margin for items that are wider than their boxes.
Box GroundOf(const View& view, const PixelBox& part) {
    PlanePoint least = view.ToGround({part.left, part.bottom}), most = view.ToGround({part.right, part.top});
    return {least.x, least.y, most.x, most.y};
}

bool IsLarge(const Box& box, double scale) {
    return std::max(box.maxX - box.minX, box.maxY - box.minY) * scale >= largeItem;
}

/// A scene in a view: the items to paint, found once for all parts of the picture.
class Job {
public:
    Job(const Scene& scene, const View& view, const PaintOptions& options)
        : scene_(scene),
          view_(view),
          options_(options),
          items_(scene.ItemsIn(
              GroundOf(view, PixelBox{0, 0, double(view.Width()), double(view.Height())}.Grown(Around())))) {}

    /// False if it was stopped.
    bool Paint(const PixelBox& part, ItemPainter& painter) const {
        const NearBox window = scene_.Near(GroundOf(view_, part.Grown(Around())));
        std::size_t looked = 0;
        for (std::uint32_t item : items_) {
            if (looked++ % itemsBetweenLooks == 0 && options_.stop.stop_requested()) return false;
            if (scene_.Meets(item, window) && IsWanted(item))
                painter.Paint(scene_, scene_.At(item), PenOf(item), view_.ToPixels());
        }
        return true;
    }

    const View& Seen() const { return view_; }
    const PaintOptions& Options() const { return options_; }

private:
    /// Half the width of the widest dot and line, in pixels: they extend beyond the boxes of their items.
    double Around() const { return 2 + 2 * options_.pixelsPerMillimetre; }
    bool IsWanted(std::uint32_t item) const {
        if (IsHidden(item)) return false;
        return !options_.isCoarse || item % coarseShare == 0 || IsLarge(scene_.BoxOf(item), view_.Scale());
    }

    const Pen& PenOf(std::uint32_t item) const {
        const Scene::Item& at = scene_.At(item);
        if (!options_.pens) return scene_.PenOf(at);
        std::size_t place = scene_.SourceOf(item).layer * pensPerLayer + PenColumn(at.kind);
        bool hasOther = place < options_.pens->size() && (*options_.pens)[place];
        return hasOther ? *(*options_.pens)[place] : scene_.PenOf(at);
    }

    bool IsHidden(std::uint32_t item) const {
        if (options_.hiddenLayers.empty()) return false;
        std::uint32_t layer = scene_.SourceOf(item).layer;
        return layer < options_.hiddenLayers.size() && options_.hiddenLayers[layer];
    }

    const Scene& scene_;
    const View& view_;
    const PaintOptions& options_;
    std::vector<std::uint32_t> items_;
};

/// Rows of an image, painted by threads in bands.
struct Rows {
    uchar* pixels;
    qsizetype bytesPerRow;
    QImage::Format format;
};

bool PaintBand(const Job& job, const Rows& rows, int top, int height) {
    const int width = job.Seen().Width();
    uchar* pixels = rows.pixels + rows.bytesPerRow * top;
    QImage band(pixels, width, height, rows.bytesPerRow, rows.format);
    QPainter painter(&band);
    painter.translate(0, -top);
    ThinLines thinLines(reinterpret_cast<std::uint32_t*>(pixels), rows.bytesPerRow / 4, width, top, height);
    PixelBox part{0, double(top), double(width), double(top + height)};
    ItemPainter items(painter, &thinLines, part, job.Options());
    return job.Paint(part, items);
}

}  // namespace

std::size_t PenColumn(ItemKind kind) {
    switch (kind) {
        case ItemKind::Line:
        case ItemKind::Arc:
            return 1;
        case ItemKind::Ring:
        case ItemKind::Area:
        case ItemKind::Circle:
            return 2;
        default:
            return 0;
    }
}

bool PaintScene(const Scene& scene, const View& view, QImage& image, const PaintOptions& options) {
    const Job job(scene, view, options);
    const Rows rows{image.bits(), image.bytesPerLine(), image.format()};
    unsigned threads = options.threads ? options.threads : std::max(1U, std::thread::hardware_concurrency());
    int bands = threads == 1 ? 1 : std::min(view.Height(), static_cast<int>(threads) * bandsPerThread);
    std::atomic<int> next = 0;
    std::atomic<bool> isWhole = true;
    auto paintBands = [&] {
        for (int band = next++; band < bands; band = next++) {
            int top = view.Height() * band / bands, bottom = view.Height() * (band + 1) / bands;
            if (!PaintBand(job, rows, top, bottom - top)) isWhole = false;
        }
    };
    {
        std::vector<std::jthread> others;
        for (unsigned i = 1; i < threads; ++i) others.emplace_back(paintBands);
        paintBands();
    }
    return isWhole;
}

bool PaintScene(const Scene& scene, const View& view, QPainter& painter, const PaintOptions& options) {
    PixelBox part{0, 0, double(view.Width()), double(view.Height())};
    painter.save();
    painter.setClipRect(QRectF(0, 0, view.Width(), view.Height()));
    ItemPainter items(painter, nullptr, part, options);
    bool isWhole = Job(scene, view, options).Paint(part, items);
    painter.restore();
    return isWhole;
}

}  // namespace vexlator::render
