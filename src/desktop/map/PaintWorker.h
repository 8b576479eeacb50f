// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

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

/// What is to be painted.
struct PaintOrder {
    std::shared_ptr<const render::Scene> scene;
    render::View view;        ///< in pixels of the screen
    int around = 0;           ///< pixels on every side, painted last, so that panning finds them there
    bool onlyAround = false;  ///< the view itself is on the screen already
    std::vector<bool> hiddenLayers;
    double pixelsPerMillimetre = 96 / 25.4;
    std::uint64_t number = 0;  ///< comes back with the pictures
};

struct Picture {
    QImage image;
    render::View view;
    bool isCoarse = false;  ///< some of the items, on nothing
    std::uint64_t number = 0;
};

/// Paints in a thread of its own: coarse first where the whole takes long, then the whole, then with what
/// lies around. The newest order wins: it ends the work on the one before, whose pictures no longer come.
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
    /// False when it was stopped.
    bool Deliver(const PaintOrder& order, const render::View& view, bool isCoarse,
                 const std::stop_token& stop);

    std::function<void(Picture)> take_;
    std::mutex mutex_;
    std::condition_variable_any wake_;
    std::optional<PaintOrder> next_;
    std::stop_source current_;    ///< of the order that is being painted
    bool wholeTakesLong_ = true;  ///< as it last did
    std::jthread thread_;
};

}  // namespace vexlator::desktop
