// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/map/MapView.h"
#include "desktop/map/MapWindow.h"
#include "drawing/Drawing.h"
#include "support/TempFolder.h"

#include <QApplication>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <mutex>

namespace vexlator::desktop {
namespace {

class Application : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int count = 1;
        static char name[] = "test_desktop_map";
        static char* arguments[] = {name, nullptr};
        application_ = std::make_unique<QApplication>(count, arguments);
    }
    void TearDown() override { application_.reset(); }

private:
    std::unique_ptr<QApplication> application_;
};
const testing::Environment* const application = testing::AddGlobalTestEnvironment(new Application);

/// An area with a line across it, and an equally near line on another layer.
void MakeDrawing(const std::string& path) {
    drawing::Drawing drawing;
    drawing.setActiveLayer("FIELD");
    drawing::Point ring[] = {{0, 0, 0}, {100, 0, 0}, {100, 100, 0}, {0, 100, 0}};
    drawing::Entity field = drawing.addPolyline(ring);
    field.setClosed(true);
    field.setFilled(true);
    drawing.setActiveLayer("FENCE");
    drawing::Entity fence = drawing.addLine({0, 50, 0}, {100, 50, 0});
    fence.xproperties().add("OWNER", "Ann");
    drawing.setActiveLayer("WALL");
    drawing.addLine({0, 50.5, 0}, {100, 50.5, 0});
    drawing.saveAs(path);
}

class Map : public testing::Test {
protected:
    void SetUp() override {
        window_ = std::make_unique<MapWindow>(installation_);
        window_->setAttribute(Qt::WA_DeleteOnClose, false);
        window_->Map().painted = [this] { ++painted_; };
        MakeDrawing(folder_ / "MAP.VDF");
        window_->Open(folder_ / "MAP.VDF");
        window_->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return painted_ > 0; }));
    }
    MapView& View() { return window_->Map(); }
    QPoint PlaceOf(double x, double y) {
        render::PlanePoint pixel = View().Shown().ToPixels()({x, y});
        return {int(std::lround(pixel.x)), int(std::lround(pixel.y))};
    }
    QString ValueOf(const QString& name) {
        auto* table = window_->findChild<QTreeWidget*>();
        for (auto* tree : window_->findChildren<QTreeWidget*>())
            if (tree->accessibleName() == "Selected feature") table = tree;
        QList<QTreeWidgetItem*> rows = table->findItems(name, Qt::MatchExactly);
        return rows.isEmpty() ? QString() : rows[0]->text(1);
    }
    void Click(double x, double y) { QTest::mouseClick(&View(), Qt::LeftButton, {}, PlaceOf(x, y)); }

    test::TempFolder folder_;
    config::Installation installation_;
    std::unique_ptr<MapWindow> window_;
    int painted_ = 0;
};

TEST_F(Map, AClickTellsTheEntityThatIsMeant) {
    Click(50, 20);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ValueOf("Layer") == "FIELD"; }));
    EXPECT_EQ("area", ValueOf("Kind"));
    EXPECT_EQ("400.00", ValueOf("Length"));
    // The nearer of two lines, and a line rather than the area below it.
    Click(50, 49.8);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ValueOf("Layer") == "FENCE"; }));
    EXPECT_EQ("Ann", ValueOf("OWNER"));
    Click(50, 50.8);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ValueOf("Layer") == "WALL"; }));
    View().SetHiddenLayers({false, false, false, true});
    EXPECT_EQ(1U, window_->File()->scene->SourceOf(*View().ItemUnder(PlaceOf(50, 50.8))).entity);
}

TEST_F(Map, TheGroundUnderThePointerStaysWhenTheWheelTurns) {
    QPoint place = PlaceOf(80, 30);
    render::PlanePoint before = View().Shown().ToGround({double(place.x()), double(place.y())});
    QWheelEvent wheel(place, View().mapToGlobal(place), {}, {0, 480}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    double scale = View().Shown().Scale();
    QApplication::sendEvent(&View(), &wheel);
    render::PlanePoint after = View().Shown().ToGround({double(place.x()), double(place.y())});
    EXPECT_NEAR(4 * scale, View().Shown().Scale(), 1e-6 * scale);
    EXPECT_NEAR(before.x, after.x, 1e-6);
    EXPECT_NEAR(before.y, after.y, 1e-6);
}

TEST_F(Map, PanningShowsAtOnceWhatIsPainted) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return painted_ > 1; }));  // including the margin
    QPoint edge = PlaceOf(20, 20);
    QColor before = View().grab().toImage().pixelColor(edge);
    EXPECT_NE(QColor(Qt::white), before);
    QTest::mousePress(&View(), Qt::MiddleButton, {}, {300, 300});
    QTest::mouseMove(&View(), {340, 310});
    QTest::mouseRelease(&View(), Qt::MiddleButton, {}, {340, 310});
    // No event of the worker has been processed in between.
    EXPECT_EQ(before, View().grab().toImage().pixelColor(edge + QPoint(40, 10)));
}

/// The pictures of many orders given at once: the last complete one belongs to the last order.
TEST(PaintWorker, TheNewestViewWins) {
    drawing::Drawing drawing;
    for (int i = 0; i < 60000; ++i) drawing.addLine({0, double(i), 0}, {1000, double(i), 0});
    std::mutex mutex;
    std::vector<std::uint64_t> whole;
    PaintWorker worker([&](const Picture& picture) {
        const std::lock_guard lock(mutex);
        if (!picture.isCoarse) whole.push_back(picture.number);
    });
    test::TempFolder folder;
    drawing.saveAs(folder / "LINES.VDF");
    MapFile file = ReadMapFile(folder / "LINES.VDF", "");
    constexpr std::uint64_t orders = 50;
    for (std::uint64_t i = 1; i <= orders; ++i)
        worker.Paint(
            {file.scene, render::View({0, 0, 1000.0 * double(i), 1000}, 800, 600), 0, false, {}, {}, 4, i});
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            const std::lock_guard lock(mutex);
            return !whole.empty() && whole.back() == orders;
        },
        20000));
    EXPECT_LT(whole.size(), orders / 2);
}

}  // namespace
}  // namespace vexlator::desktop
