// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/LineSteps.h"
#include "background/package/TextAnchor.h"
#include "background/package/TileGrid.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace vexlator;
using namespace vexlator::background;

TEST(TileGrid, NumbersAreColumnAndRow) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr std::int32_t none = -1;
    struct {
        double tile, x, y;
        std::int32_t expected;
    } cases[] = {
        {250, 523456.7, 181234.2, 209300724},
        {999, 999, 1998, 100002},
        {1000, 1000, 2000, 10002},
        {9999, 9999, 9999 * 2, 10002},
        {10000, 10000, 20000, 1002},
        {250, 0, 249.9, 0},
        {250, 250, 25000000, 1100000},  // a row of six digits keeps them all
        {250, 21474.0 * 250, 83647.0 * 250, 2147483647},
        {250, 21474.0 * 250, 83648.0 * 250, none},
        {250, 1e300, 0, none},
        {250, 0, 1e300, none},
        {250, -1, 0, none},
        {250, nan, 0, none},
    };
    for (auto [tile, x, y, expected] : cases)
        EXPECT_EQ(TileNumber(tile, {x, y}).value_or(none), expected) << tile << " " << x << " " << y;
}

namespace {

std::string StepsOf(std::vector<util::PlanePoint> points) {
    std::vector<Step> steps;
    if (!EncodeSteps(points, steps)) return "too long";
    std::string text;
    for (Step step : steps) text += "(" + std::to_string(step.dx) + "," + std::to_string(step.dy) + ")";
    return text;
}

}  // namespace

TEST(LineSteps, AreHundredthsAndNeverLong) {
    struct {
        std::vector<util::PlanePoint> points;
        const char* expected;
    } cases[] = {
        {{{5, 5}}, ""},
        {{{0, 0}, {700, 10}}, "(32000,500)(32000,500)(6000,0)"},
        {{{0, 0}, {320, 0}}, "(32000,0)(0,0)"},
        {{{0, 0}, {319.99, 0}}, "(31999,0)"},
        {{{0, 0}, {0.125, 0.375}}, "(12,38)"},                         // ties go to even
        {{{0, 0}, {0.004, 0}, {0.008, 0}}, "(0,0)(0,0)"},              // errors do not accumulate
        {{{0, 0}, {-640, 640}}, "(-32000,32000)(-32000,32000)(0,0)"},  // diagonal
        {{{0, 0}, {-3, -350}}, "(-300,-32000)(0,-3000)"},
    };
    for (const auto& [points, expected] : cases) EXPECT_EQ(StepsOf(points), expected);
}

/// The sideways part of a sub-step is rounded. Over 1000 of them the error exceeds a whole sub-step.
TEST(LineSteps, ReachTheEndOfVeryLongSteps) {
    for (double dy : {498.4, 100498.0, 159840.0, -159999.0, 0.0, 900.0}) {
        for (double dx : {320000.0, -320000.0, 320160.0, 1e6}) {
            std::vector<Step> steps;
            ASSERT_TRUE(EncodeSteps(std::vector<util::PlanePoint>{{7, 9}, {7 + dx, 9 + dy}}, steps));
            double x = 7, y = 9;
            for (Step step : steps) {
                x += step.dx / 100.0;
                y += step.dy / 100.0;
            }
            EXPECT_NEAR(x, 7 + dx, 0.006) << dx << " " << dy;
            EXPECT_NEAR(y, 9 + dy, 0.006) << dx << " " << dy;
            EXPECT_LE(steps.size(), std::abs(dx) / 320 + 4) << dx << " " << dy;
        }
    }
    EXPECT_EQ(StepsOf({{0, 0}, {320.0 * 32767, 0}}), "too long");
    EXPECT_EQ(StepsOf({{0, 0}, {1e300, 1e299}}), "too long");
    EXPECT_NE(StepsOf({{0, 0}, {320.0 * 32765, 0}}), "too long");
}

TEST(TextAnchor, IsTheTopLeftOfTheText) {
    // Ten characters of height 2: 13 units wide.
    struct {
        int code;
        double x, y;
    } cases[] = {{-1, 100, 202},   {2, 100, 200}, {3, 93.5, 202}, {4, 93.5, 200},
                 {5, 93.5, 199.5}, {6, 87, 200},  {8, 87, 200},   {9, 93.5, 200}};
    for (auto [code, x, y] : cases) {
        auto flat = TextAnchor({100, 200}, code, 20, 0, 10);
        ASSERT_TRUE(flat);
        EXPECT_DOUBLE_EQ(flat->x, x) << code;
        EXPECT_DOUBLE_EQ(flat->y, y) << code;
        auto upright = TextAnchor({100, 200}, code, 20, 900, 10);
        EXPECT_NEAR(upright->x, 100 - (y - 200), 1e-9) << code;
        EXPECT_NEAR(upright->y, 200 + (x - 100), 1e-9) << code;
    }
    EXPECT_FALSE(TextAnchor({0, 0}, 10, 20, 0, 1));
    EXPECT_FALSE(TextAnchor({0, 0}, -2, 20, 0, 1));
}
