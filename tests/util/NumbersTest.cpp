// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Numbers.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace vexlator::util {
namespace {

constexpr double largest = std::numeric_limits<double>::max();

TEST(Numbers, LeadingNumber) {
    struct {
        std::string_view text;
        double value;
    } const cases[] = {
        {"", 0},
        {"12.5 m", 12.5},
        {" \t-3", -3},
        {"+4.25", 4.25},
        {"+-4", 0},
        {"-.5x", -0.5},
        {".", 0},
        {"1e3", 1000},
        {"1E-2", 0.01},
        {"1e+", 1},
        {"inf", 0},
        {"nan", 0},
        {"0x10", 0},
        {"1e999", largest},
        {"-1E+999 east", -largest},
        {"1e-999", 0},
        {"0.0000001e-400", 0},
        {"\xC2\xA0"
         "1",
         0},
    };
    for (const auto& c : cases) EXPECT_EQ(NumberOf(c.text), c.value) << '"' << c.text << '"';
    EXPECT_EQ(NumberOf(std::string(400, '9')), largest);
    EXPECT_EQ(NumberOf("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(NumberOf(std::string(100'000, '0') + "7"), 7);
}

TEST(Numbers, LeadingWholeNumber) {
    EXPECT_EQ(IntegerOf(" +42 and more"), 42);
    EXPECT_EQ(IntegerOf("-7.9"), -7);
    EXPECT_EQ(IntegerOf("x1"), 0);
    EXPECT_EQ(IntegerOf("+"), 0);
    EXPECT_EQ(IntegerOf("99999999999999999999"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(IntegerOf("-99999999999999999999"), std::numeric_limits<std::int64_t>::min());
}

TEST(Numbers, FixedDecimals) {
    struct {
        double value;
        int decimals;
        std::string_view text;
    } const cases[] = {
        {0, 0, "0"},
        {-0.0, 2, "0.00"},
        {1.0005, 3, "1.001"},
        {1.005, 2, "1.01"},
        {2.5, 0, "3"},
        {0.0004999999999999999, 3, "0.000"},
        {-0.0004999999999999999, 3, "0.000"},
        {-0.0005, 3, "-0.001"},
        {0.05, 0, "0"},
        {9.9995, 3, "10.000"},
        {-99.5, 0, "-100"},
        {5e-324, 15, "0.000000000000000"},
        {123456.12345678912, 15, "123456.123456789120000"},
        {1125899906842624.5, 0, "1125899906842625"},
        {9007199254740993.0, 3, "9007199254740992.000"},
        {1e23, 1, "100000000000000000000000.0"},
        {std::numeric_limits<double>::infinity(), 2, "0.00"},
        {std::numeric_limits<double>::quiet_NaN(), 1, "0.0"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FormatFixed(c.value, c.decimals), c.text) << c.value;
        EXPECT_EQ(RoundFixed(c.value, c.decimals), NumberOf(c.text)) << c.text;
        EXPECT_FALSE(std::signbit(RoundFixed(c.value, c.decimals)) && c.text[0] != '-') << c.text;
    }
    for (double value : {largest, -largest}) {
        std::string text = FormatFixed(value, 15);
        EXPECT_EQ(NumberOf(text), value);
        EXPECT_LE(text.size(), longestFixed);
    }
}

// The fast path for common values and the exact path for halves and large values must agree: a number made of
// whole thousandths and a tail is rounded by its digits.
TEST(Numbers, FixedDecimalsOfManyValues) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 200'000; ++i) {
        std::uint64_t thousandths = random() % (std::uint64_t{1} << (1 + random() % 40));
        unsigned tail = static_cast<unsigned>(random() % 3 == 0 ? 50 : random() % 100);
        std::string kept = ZeroPadded(static_cast<std::int64_t>(thousandths), 4);
        std::string text = kept.substr(0, kept.size() - 3) + "." + kept.substr(kept.size() - 3);
        double value = NumberOf(text + ZeroPadded(tail, 2));
        std::string up = ZeroPadded(static_cast<std::int64_t>(thousandths + 1), 4);
        std::string next = up.substr(0, up.size() - 3) + "." + up.substr(up.size() - 3);
        ASSERT_EQ(FormatFixed(value, 3), tail >= 50 ? next : text) << text << " " << tail;
        ASSERT_EQ(RoundFixed(value, 3), NumberOf(tail >= 50 ? next : text)) << text << " " << tail;
    }
}

TEST(Numbers, OtherTexts) {
    const std::pair<double, const char*> shortest[] = {
        {0.1, "0.1"}, {400000, "400000"},  {-0.000012, "-0.000012"},
        {-0.0, "0"},  {-1e300, "-1e+300"}, {std::numeric_limits<double>::infinity(), "0"}};
    for (auto [value, text] : shortest) EXPECT_EQ(FormatShortest(value), text);
    EXPECT_EQ(ZeroPadded(-7, 3), "-007");
    EXPECT_EQ(ZeroPadded(12345, 3), "12345");
    EXPECT_EQ(GroupedCount(999), "999");
    EXPECT_EQ(GroupedCount(1234567), "1,234,567");
}

}  // namespace
}  // namespace vexlator::util
