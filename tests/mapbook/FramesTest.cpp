// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Vdf.h"
#include "mapbook/BookPlan.h"
#include "mapbook/Frames.h"
#include "mapbook/PageLayout.h"
#include "support/TempFolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace vexlator::mapbook {
namespace {

/// A drawing whose symbol SHEET is 100 by 80 units around its middle.
class FrameDrawing {
public:
    FrameDrawing() {
        drawing::Drawing sheet;
        sheet.addPolyline(std::vector<drawing::Point>{{-50, -40}, {50, -40}, {50, 40}, {-50, 40}});
        drawing_.addBlock({"SHEET", drawing::VdfBytes(sheet)});
        drawing_.setActiveLayer("Sheets");
    }
    drawing::Entity Add(double x, double y, std::string_view name = "", std::string_view value = "") {
        drawing::Entity frame = drawing_.addInsert({x, y, 0}, "SHEET", 1, 1, 0);
        if (!name.empty()) frame.xproperties().add(name, value);
        return frame;
    }
    std::vector<PageFrame> Find(FrameChoice choice = {.layer = "SHEETS", .symbolsFolder = ""}) {
        drawing_.saveAs(folder_ / "a.VDF");
        drawing::DrawingFile file(folder_ / "a.VDF");
        told.clear();
        return FindFrames(file, choice, [&](std::string_view line) { told.emplace_back(line); });
    }
    drawing::Drawing& Content() { return drawing_; }
    std::vector<std::string> told;

private:
    test::TempFolder folder_;
    drawing::Drawing drawing_;
};

std::vector<std::string> NamesOf(const std::vector<PageFrame>& frames) {
    std::vector<std::string> names;
    for (const PageFrame& frame : frames) names.push_back(frame.name);
    return names;
}

TEST(Frames, AreSortedNamedAndLimited) {
    FrameDrawing drawing;
    drawing.Add(0, 0, "SHEET", "12");
    drawing.Add(100, 0, "NO", " 3 ");
    drawing.Add(200, 0, "NO", "3");
    drawing.Add(300, 0, "NAME", "yard").xproperties().add("COUNT", "7");
    drawing.Content().addPoint({0, 0, 0});
    EXPECT_EQ(NamesOf(drawing.Find()),
              (std::vector<std::string>{"Sheets-3", "Sheets-3_2", "Sheets-7", "Sheets-12"}));
    EXPECT_EQ(drawing.told, std::vector<std::string>{"page Sheets-3 is there 2 times"});
    EXPECT_EQ(NamesOf(drawing.Find({.layer = "sheets", .least = 4, .most = 11, .symbolsFolder = ""})),
              std::vector<std::string>{"Sheets-7"});
    EXPECT_TRUE(drawing.Find({.layer = "", .symbolsFolder = ""}).empty());
}

TEST(Frames, WithoutNumbersCountAndWithoutSymbolHaveTheUsualPage) {
    FrameDrawing drawing;
    drawing.Add(0, 0);
    drawing::Entity turned = drawing.Add(1000, 0);
    drawing::Shape shape = turned.shape();
    shape.rotation = std::numbers::pi / 2;
    shape.scaleX = 2;
    turned.setShape(shape);
    drawing.Content().addInsert({5000, 5000, 0}, "GONE", 1, 1, 0);
    std::vector<PageFrame> frames = drawing.Find();
    ASSERT_EQ(NamesOf(frames), (std::vector<std::string>{"Sheets-1", "Sheets-2", "Sheets-3"}));
    EXPECT_EQ(frames[0].ground, (drawing::Box{-50, -40, 50, 40}));
    EXPECT_NEAR(frames[1].ground.minX, 960, 1e-9);
    EXPECT_NEAR(frames[1].ground.maxY, 100, 1e-9);
    EXPECT_EQ(LayoutFor(frames[2].ground, {.paper = ""}).denominator, 500);
    EXPECT_NEAR(frames[2].ground.minX / 2 + frames[2].ground.maxX / 2, 5000, 1e-9);
}

TEST(Frames, SurviveThePlan) {
    BookPlan plan;
    plan.drawing = "/tmp/a b.VDF";
    plan.job = "Zürich; \"x\"";
    plan.titles.description = "line\r\nbreak";
    plan.images = false;
    plan.grid = 1250;
    plan.frames = {{7, "A-7", {0.1, -2e-7, 431200.123456, 1e9}}};
    BookPlan read = ReadBookPlan(BookPlanText(plan));
    EXPECT_EQ(read.drawing, plan.drawing);
    EXPECT_EQ(read.job, plan.job);
    EXPECT_EQ(read.titles.description, "line  break");
    EXPECT_FALSE(read.images);
    EXPECT_EQ(read.grid, 1250);
    ASSERT_EQ(read.frames.size(), 1);
    EXPECT_EQ(read.frames[0].ground, plan.frames[0].ground);
}

bool IsRound(double denominator) {
    double mantissa = denominator / std::pow(10, std::floor(std::log10(denominator) + 1e-9));
    for (double step : {1.0, 1.25, 2.0, 2.5, 5.0})
        if (std::abs(mantissa - step) < 1e-9) return true;
    return false;
}

TEST(PageLayout, ShowsEveryFrameAtARoundScaleWithoutOverlaps) {
    std::mt19937 random(3);  // NOLINT(bugprone-random-generator-seed)
    std::uniform_real_distribution<double> power(-1, 6);
    for (int i = 0; i < 2000; ++i) {
        double width = std::pow(10, power(random)), height = std::pow(10, power(random));
        drawing::Box frame{1000, 2000, 1000 + width, 2000 + height};
        PageLayout page = LayoutFor(frame, {.paper = ""});
        ASSERT_TRUE(IsRound(page.denominator)) << page.denominator;
        EXPECT_LE(page.ground.minX, frame.minX + 1e-6 * width);
        EXPECT_GE(page.ground.maxX, frame.maxX - 1e-6 * width);
        EXPECT_LE(page.ground.minY, frame.minY + 1e-6 * height);
        EXPECT_GE(page.ground.maxY, frame.maxY - 1e-6 * height);
        EXPECT_NEAR((page.ground.maxX - page.ground.minX) * 1000 / page.denominator, page.map.Width(), 1e-6);
        for (const PaperBox& box : {page.titles, page.legend, page.marks}) {
            EXPECT_TRUE(box.left >= page.map.right || box.top >= page.map.bottom);
            EXPECT_TRUE(box.Width() > 20 && box.Height() > 10 && box.right < page.width &&
                        box.bottom < page.height);
        }
    }
}

TEST(PageLayout, ChoosesPaperByTheFrame) {
    auto text = [](double width, double height, const char* paper = "") {
        PageLayout page = LayoutFor({0, 0, width, height}, {.paper = paper});
        return page.PaperText() + " " + std::to_string(static_cast<int>(page.denominator));
    };
    EXPECT_EQ(text(100, 80), "A4 landscape 500");
    EXPECT_EQ(text(80, 100), "A4 portrait 500");
    EXPECT_EQ(text(150, 100), "A3 landscape 500");
    EXPECT_EQ(text(150, 100, "a4"), "A4 landscape 1000");
    EXPECT_EQ(text(20, 20, "A3"), "A3 landscape 100");
}

}  // namespace
}  // namespace vexlator::mapbook
