// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Installation.h"
#include "desktop/map/MapView.h"
#include "desktop/styling/frmBkgndStyle.h"
#include "drawing/Drawing.h"
#include "render/DrawingScene.h"
#include "render/Painter.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QImage>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <utility>
#include <vector>

/// bench_styling [FEATURES [ROUNDS]]: how soon a change in the styling window is on its map, beside the time
/// that painting the same picture takes alone, and the longest time that the window has not answered
/// meanwhile. Runs without a display: QT_QPA_PLATFORM=offscreen.
namespace vexlator {
namespace {

constexpr int layers = 40, perRow = 1000;
constexpr std::size_t usualFeatures = 1000000;

/// Points, lines and closed lines in turn, on many layers.
void MakeDrawing(const std::string& path, std::size_t features) {
    drawing::Drawing drawing;
    for (std::size_t i = 0; i < features; ++i) {
        if (i % perRow == 0) drawing.setActiveLayer("LAYER" + std::to_string(i / perRow % layers));
        double x = double(i % perRow) * 10, y = double(i / perRow) * 10;
        const std::array<drawing::Point, 4> course = {
            {{x, y, 0}, {x + 6, y, 0}, {x + 6, y + 6, 0}, {x, y + 6, 0}}};
        if (i % 3 == 0)
            drawing.addPoint(course[0]);
        else
            drawing.addPolyline(course).setClosed(i % 3 == 1);
    }
    drawing.saveAs(path);
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// Of this thread, in milliseconds.
double ProcessorTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// Lets the window work until something holds. Notes the longest time between two looks at its events, and
/// the most processor time that the window's thread took between two: other programs make only the first
/// longer.
class Watch {
public:
    explicit Watch(const std::function<bool()>& holds) {
        QEventLoop loop;
        QElapsedTimer since, whole;
        since.start();
        whole.start();
        double used = ProcessorTime();
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            longest_ = std::max(longest_, double(since.restart()));
            busiest_ = std::max(busiest_, ProcessorTime() - std::exchange(used, ProcessorTime()));
            if (holds()) loop.quit();
        });
        timer.start(0);
        loop.exec();
        taken_ = double(whole.elapsed());
    }
    double Longest() const { return longest_; }
    double Busiest() const { return busiest_; }
    double Taken() const { return taken_; }

private:
    double longest_ = 0, busiest_ = 0, taken_ = 0;
};

double PaintAlone(const render::Scene& scene, const render::View& view) {
    QImage image(view.Width(), view.Height(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QElapsedTimer timer;
    timer.start();
    PaintScene(scene, view, image);
    return double(timer.elapsed());
}

class Bench {
public:
    Bench(config::Installation& installation, std::string drawing)
        : window_(installation), drawing_(std::move(drawing)) {
        window_.setAttribute(Qt::WA_DeleteOnClose, false);
        map_ = dynamic_cast<desktop::MapView*>(window_.findChild<QWidget*>(QStringLiteral("drawing")));
        map_->painted = [this] { isPainted_ = true; };
        window_.show();
    }
    /// The second time the drawing that was there goes.
    void Open(const char* what) {
        isPainted_ = false;
        window_.OpenDrawing(drawing_);
        Report(what, Watch([this] { return isPainted_ && !window_.IsBusy(); }));
        Press("btnGetLayers");
    }
    void Edit(int rounds) {
        const render::Scene scene = render::SceneOfFile(drawing_, {});
        std::vector<double> taken, alone, longest, busiest;
        for (int round = 0; round < rounds; ++round) {
            isPainted_ = false;
            QElapsedTimer timer;
            timer.start();
            double used = ProcessorTime();
            SetCell(round % 2 == 0 ? "Red" : "Green");
            used = ProcessorTime() - used;
            Watch watch([this] { return isPainted_; });
            taken.push_back(double(timer.elapsed()));
            longest.push_back(watch.Longest());
            busiest.push_back(std::max(used, watch.Busiest()));
            alone.push_back(PaintAlone(scene, map_->Shown()));
        }
        std::printf("%-12s  %5.0f ms to the whole picture, %5.0f ms to paint it alone, ratio %.2f\n",
                    "a cell", Median(taken), Median(alone), Median(taken) / Median(alone));
        std::printf("%-12s  without answer %.0f ms, of these %.1f ms at work\n", "", Median(longest),
                    Median(busiest));
    }
    void Device() {
        Press("btnDevice");
        Report("the package", Watch([this] { return !window_.IsBusy(); }));
        Press("btnDevice");
        Report("back", Watch([this] { return !window_.IsBusy(); }));
    }

private:
    void Press(const char* button) { window_.findChild<QPushButton*>(QLatin1String(button))->click(); }
    void SetCell(const char* colour) {
        QAbstractItemModel* rows = window_.findChild<QTableView*>(QStringLiteral("grdStyle"))->model();
        rows->setData(rows->index(0, static_cast<int>(background::StyleColumn::Lines)),
                      QString::fromLatin1(colour), Qt::EditRole);
    }
    static void Report(const char* what, const Watch& watch) {
        std::printf("%-12s  %5.0f ms; without answer at most %.0f ms, of these %.1f ms at work\n", what,
                    watch.Taken(), watch.Longest(), watch.Busiest());
    }

    desktop::frmBkgndStyle window_;
    std::string drawing_;
    desktop::MapView* map_ = nullptr;
    bool isPainted_ = false;
};

int Perform(int argc, char** argv) {
    QApplication application(argc, argv);
    QTemporaryDir folder;
    const std::string path = folder.filePath(QStringLiteral("million.VDF")).toStdString();
    MakeDrawing(path, argc > 1 ? std::strtoull(argv[1], nullptr, 10) : usualFeatures);
    config::Installation installation;
    installation.Settings().IniFilePath = folder.filePath(QStringLiteral("gv.ini")).toStdString();
    installation.Settings().TempDirectory = folder.path().toStdString();
    Bench bench(installation, path);
    bench.Open("opening");
    bench.Edit(argc > 2 ? std::atoi(argv[2]) : 9);
    bench.Open("again");
    bench.Device();
    return 0;
}

}  // namespace
}  // namespace vexlator

int main(int argc, char** argv) {
    return vexlator::Perform(argc, argv);
}
