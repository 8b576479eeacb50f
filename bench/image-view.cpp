// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

/// bench_image_view [SIDE]: makes an image of SIDE x SIDE pixels, 20,000 by default, reads it as the
/// georeferencing window does, and prints JSON: the peak of memory and what is kept, as parts of the decoded
/// image; for screens of two sizes the median and the worst milliseconds of a frame, while the image is moved
/// at full size, and while it is zoomed through all scales.
#include "desktop/georef/ImageView.h"

#include <QApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {

using vexlator::desktop::ImagePyramid;
using vexlator::desktop::ImageView;

struct Frames {
    double median = 0, worst = 0;  ///< milliseconds
};

/// The first frame after the image has come is not counted.
template <typename Step>
Frames Play(ImageView& view, int count, Step step) {
    std::vector<double> times;
    for (int i = 0; i <= count; ++i) {
        auto begin = std::chrono::steady_clock::now();
        step(i);
        view.repaint();
        std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
        if (i > 0) times.push_back(took.count());
    }
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times.back()};
}

void PrintScreen(const std::shared_ptr<const ImagePyramid>& image, QSize screen) {
    constexpr int frames = 120;
    ImageView view;
    view.resize(screen);
    view.show();
    QApplication::processEvents();
    view.SetImage(image);
    Frames panning = Play(view, frames, [&](int i) { view.ScrollTo(QPointF(37.0 * i, 23.0 * i)); });
    view.Fit();
    double all = view.Scale();
    Frames zooming = Play(
        view, frames, [&](int i) { view.ZoomBy(std::pow(4 / all, (i < frames / 2 ? 2.0 : -2.0) / frames)); });
    std::printf(",\n\"%d x %d\": {\"pan\": [%.1f, %.1f], \"zoom\": [%.1f, %.1f]}", screen.width(),
                screen.height(), panning.median, panning.worst, zooming.median, zooming.worst);
}

std::string MakeImage(const QString& folder, int side) {
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < side; ++x) row[x] = qRgb(x / 7 & 255, y / 5 & 255, (x / 50 + y / 50) % 2 * 200);
    }
    QString path = folder + "/image.jpg";
    if (!image.save(path, "JPG", 85)) throw std::runtime_error("the image cannot be written");
    return path.toStdString();
}

double PeakBytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

void Measure(const std::string& path) {
    double before = PeakBytes();
    auto begin = std::chrono::steady_clock::now();
    auto image = vexlator::desktop::ReadImage(path, {});
    std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    double decoded = 4.0 * image->Size().width() * image->Size().height();
    std::printf("{\"side\": %d, \"seconds to read\": %.1f, \"peak\": %.2f, \"kept\": %.2f",
                image->Size().width(), took.count(), (PeakBytes() - before) / decoded,
                static_cast<double>(image->Bytes()) / decoded);
    PrintScreen(image, {1920, 1080});
    PrintScreen(image, {3840, 2160});
    std::printf("}\n");
}

}  // namespace

/// The image is made by a process of its own, whose memory does not count.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    try {
        if (argc == 3) {
            MakeImage(QString::fromLocal8Bit(argv[2]), std::atoi(argv[1]));
            return 0;
        }
        QTemporaryDir folder;
        std::string side = argc == 2 ? argv[1] : "20000";
        std::string command = std::string(argv[0]) + " " + side + " " + folder.path().toStdString();
        if (std::system(command.c_str()) != 0) throw std::runtime_error("no image");
        Measure((folder.path() + "/image.jpg").toStdString());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_image_view: %s\n", error.what());
        return 1;
    }
}
