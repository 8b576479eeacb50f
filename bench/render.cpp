// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

/// bench_render FILE.VDF: prints JSON with the seconds from the drawing's file to the scene, and from the
/// scene to the whole picture of 1600 x 1000 pixels, to a coarse one, and to a window of a hundredth of the
/// ground; also the frames per second of a map view that pans over painted parts.
#include "desktop/map/MapView.h"
#include "render/DrawingScene.h"
#include "render/Painter.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QTest>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <exception>

namespace {

using namespace vexlator::render;

template <typename Work>
double SecondsOf(Work work) {
    auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The minimum of several, after the first: the cost of a view that is painted repeatedly.
double SecondsOfView(const Scene& scene, const Box& extent, const PaintOptions& options = {}) {
    QImage image(1600, 1000, QImage::Format_RGB32);
    double least = INFINITY;
    for (int i = 0; i < 5; ++i) {
        image.fill(Qt::white);
        least =
            std::min(least, SecondsOf([&] { PaintScene(scene, View(extent, 1600, 1000), image, options); }));
    }
    return least;
}

/// A hundredth of the ground, with the picture's shape, in its centre.
Box WindowOf(const Box& box) {
    double x = box.minX / 2 + box.maxX / 2, y = box.minY / 2 + box.maxY / 2;
    double across = std::sqrt(0.01 * 1.6 * (box.maxX - box.minX) * (box.maxY - box.minY)), up = across / 1.6;
    return {x - across / 2, y - up / 2, x + across / 2, y + up / 2};
}

/// Steps of a few pixels back and forth, each painted before the next.
double FramesWhilePanning(std::shared_ptr<const Scene> scene) {
    constexpr int frames = 400, turn = 20, step = 5;  // pixels
    vexlator::desktop::MapView map;
    int painted = 0;
    map.painted = [&] { ++painted; };
    map.resize(1600, 1000);
    map.SetScene(std::move(scene));
    map.show();
    // The view, then the view with its margin.
    if (!QTest::qWaitFor([&] { return painted >= 2; }, 60000))
        throw std::runtime_error("nothing was painted");
    QPointF place(800, 500);
    auto drag = [&](QEvent::Type type, Qt::MouseButton button) {
        QMouseEvent event(type, place, map.mapToGlobal(place), button, Qt::MiddleButton, Qt::NoModifier);
        QApplication::sendEvent(&map, &event);
    };
    drag(QEvent::MouseButtonPress, Qt::MiddleButton);
    double seconds = SecondsOf([&] {
        for (int i = 0; i < frames; ++i) {
            place.rx() += i / turn % 2 ? -step : step;
            drag(QEvent::MouseMove, Qt::NoButton);
            map.repaint();
        }
    });
    return frames / seconds;
}

void Measure(const char* path) {
    std::shared_ptr<const Scene> kept;
    double reading = SecondsOf([&] { kept = std::make_shared<Scene>(SceneOfFile(path, {})); });
    const Scene& scene = *kept;
    PaintOptions coarse;
    coarse.isCoarse = true;
    double whole = SecondsOfView(scene, scene.Extents());
    std::printf(
        "{\"reading\": %.4f, \"whole\": %.4f, \"coarse\": %.4f, \"window\": %.4f, \"frames\": %.0f}\n",
        reading, whole, SecondsOfView(scene, scene.Extents(), coarse),
        SecondsOfView(scene, WindowOf(scene.Extents())), FramesWhilePanning(kept));
}

}  // namespace

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    try {
        if (count != 2) throw std::runtime_error("bench_render FILE.VDF");
        Measure(arguments[1]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
