// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Angles.h"
#include "util/Geometry.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace vexlator::util {
namespace {

constexpr double pi = std::numbers::pi;

double Radians(double degrees) {
    return degrees / 180 * pi;
}

TEST(Angles, Bearings) {
    struct {
        double x, y, bearing;
    } const cases[] = {
        {0, 1, 0}, {1, 1, pi / 4}, {1, 0, pi / 2}, {0, -1, pi}, {-1, 0, 3 * pi / 2}, {-1, 1, 7 * pi / 4},
    };
    for (const auto& c : cases) EXPECT_NEAR(Bearing(10, 20, 10 + c.x, 20 + c.y), c.bearing, 1e-15);
    EXPECT_LT(Bearing(0, 0, -1e-300, 1), 2 * pi) << "a hair west of north";

    std::string message;
    EXPECT_EQ(Bearing(1, 2, 1, 2, [&](const std::string& text) { message = text; }), 0);
    EXPECT_EQ(message, "RO sameas Occupied - assuming 0");
}

TEST(Angles, Text) {
    struct {
        double degrees;
        std::optional<int> decimals;
        std::string_view text;
    } const cases[] = {
        {0, {}, "000.00'00\""},
        {359.99999, {}, "000.00'00\""},
        {361, {}, "001.00'00\""},
        {-90, {}, "-090.00'00\""},
        {1.0 / 3600 * 59.6, {}, "000.01'00\""},
        {59.99999, {}, "060.00'00\""},
        {51.4778889, 2, "051.28'40\"40"},
        {51.4778889, 0, "051.28'40\""},
        {-0.0001, 3, "-000.00'00\"360"},
        {1.99 / 3600, 1, "000.00'01\"9"},
        {std::numeric_limits<double>::quiet_NaN(), 2, "000.00'00\"00"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FormatAngleText(Radians(c.degrees), c.decimals), c.text) << c.degrees;
    for (double huge : {1e300, -1e300}) EXPECT_TRUE(ParseAngleText(FormatAngleText(huge, 15)));
}

TEST(Angles, TextRead) {
    struct {
        std::string_view text;
        std::optional<double> degrees;
    } const cases[] = {
        {"051.28'40\"40", 51 + 28 / 60.0 + 40.4 / 3600},
        {"-000.00'00\"360", -0.36 / 3600},
        {"12", 12},
        {"12.30'36", 12.51},
        {"", {}},
        {".30'00\"", {}},
        {"12.30'00\"5x", {}},
        {"--12", {}},
    };
    for (const auto& c : cases) {
        auto radians = ParseAngleText(c.text);
        ASSERT_EQ(radians.has_value(), c.degrees.has_value()) << c.text;
        if (radians) {
            EXPECT_NEAR(*radians * degreesPerRadian, *c.degrees, 1e-12) << c.text;
        }
    }
}

}  // namespace
}  // namespace vexlator::util
