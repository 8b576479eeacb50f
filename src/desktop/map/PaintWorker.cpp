// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/map/PaintWorker.h"

#include "render/Painter.h"

#include <chrono>
#include <utility>

namespace vexlator::desktop {

namespace {

/// Limits for painting a scene at once: a small number of items, or a short time of the last picture.
constexpr std::size_t fewItems = 20000;
constexpr std::chrono::milliseconds short_{40};

}  // namespace

PaintWorker::PaintWorker(std::function<void(Picture)> take)
    : take_(std::move(take)), thread_([this](const std::stop_token& end) { Work(end); }) {}

PaintWorker::~PaintWorker() {
    thread_.request_stop();
    const std::lock_guard lock(mutex_);
    current_.request_stop();
}

void PaintWorker::Paint(PaintOrder order) {
    const std::lock_guard lock(mutex_);
    current_.request_stop();
    next_ = std::move(order);
    wake_.notify_one();
}

void PaintWorker::Work(const std::stop_token& end) {
    std::unique_lock lock(mutex_);
    while (wake_.wait(lock, end, [this] { return next_.has_value(); }) && !end.stop_requested()) {
        PaintOrder order = *std::exchange(next_, std::nullopt);
        current_ = std::stop_source();
        std::stop_token stop = current_.get_token();
        lock.unlock();
        Carry(order, stop);
        lock.lock();
    }
}

void PaintWorker::Carry(const PaintOrder& order, const std::stop_token& stop) {
    const render::View& view = order.view;
    if (!order.onlyAround) {
        if (wholeTakesLong_ && order.scene->ItemCount() > fewItems && !Deliver(order, view, true, stop))
            return;
        auto start = std::chrono::steady_clock::now();
        if (!Deliver(order, view, false, stop)) return;
        wholeTakesLong_ = std::chrono::steady_clock::now() - start > short_;
    }
    if (order.around > 0)
        Deliver(order, view.Resized(view.Width() + 2 * order.around, view.Height() + 2 * order.around), false,
                stop);
}

bool PaintWorker::Deliver(const PaintOrder& order, const render::View& view, bool isCoarse,
                          const std::stop_token& stop) {
    QImage image(view.Width(), view.Height(),
                 isCoarse ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (image.isNull()) return false;
    image.fill(isCoarse ? Qt::transparent : Qt::white);
    render::PaintOptions options;
    options.pixelsPerMillimetre = order.pixelsPerMillimetre;
    options.isCoarse = isCoarse;
    options.hiddenLayers = order.hiddenLayers;
    options.pens = order.pens;
    options.stop = stop;
    if (!PaintScene(*order.scene, view, image, options)) return false;
    // The lock prevents a new order in between.
    const std::lock_guard lock(mutex_);
    if (stop.stop_requested()) return false;
    take_({std::move(image), view, isCoarse, order.number});
    return true;
}

}  // namespace vexlator::desktop
