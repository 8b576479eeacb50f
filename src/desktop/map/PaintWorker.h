// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Painter.h"
#include "render/Scene.h"
#include "render/View.h"

#include <QImage>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <vector>

namespace vexlator::desktop {

/// An order to paint.
struct PaintOrder {
    std::shared_ptr<const render::Scene> scene;
    render::View view;        ///< in screen pixels
    int around = 0;           ///< margin in pixels on every side, painted last, for panning
    bool onlyAround = false;  ///< the view itself is already on the screen
    std::vector<bool> hiddenLayers;
    std::shared_ptr<const render::LayerPens> pens;
    double pixelsPerMillimetre = 96 / 25.4;
    std::uint64_t number = 0;  ///< returned with the pictures
};

struct Picture {
    QImage image;
    render::View view;
    bool isCoarse = false;  ///< some of the items, on a transparent background
    std::uint64_t number = 0;
};

/// Paints in its own thread: first coarsely if the whole takes long, then the whole, then the margin. A new
/// order ends the work on the one before, whose pictures do not arrive any more.
class PaintWorker {
public:
    /// `take` gets every picture, in the worker's thread.
    explicit PaintWorker(std::function<void(Picture)> take);
    ~PaintWorker();
    PaintWorker(const PaintWorker&) = delete;
    PaintWorker& operator=(const PaintWorker&) = delete;

    void Paint(PaintOrder order);

private:
    void Work(const std::stop_token& end);
    void Carry(const PaintOrder& order, const std::stop_token& stop);
    /// False if it was stopped.
    bool Deliver(const PaintOrder& order, const render::View& view, bool isCoarse,
                 const std::stop_token& stop);

    std::function<void(Picture)> take_;
    std::mutex mutex_;
    std::condition_variable_any wake_;
    std::optional<PaintOrder> next_;
    std::stop_source current_;    ///< stops the order in work
    bool wholeTakesLong_ = true;  ///< in the last picture
    std::jthread thread_;
};

}  // namespace vexlator::desktop
