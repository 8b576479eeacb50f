// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/Fit.h"
#include "georef/Ground.h"
#include "georef/GroundConversion.h"
#include "georef/PointEntries.h"
#include "georef/QgisPoints.h"
#include "platform/Errors.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <random>

namespace vexlator::georef {

namespace {

using util::PlanePoint;

struct Numbers {
    std::mt19937 random{20240305};
    double Between(double low, double high) { return std::uniform_real_distribution(low, high)(random); }
};

/// Pixels of a large scan, with their ground positions in a national grid from `ground`.
template <class Ground>
std::vector<ControlPoint> PointsOf(Numbers& numbers, int count, Ground ground) {
    std::vector<ControlPoint> points;
    for (int i = 1; i <= count; ++i) {
        PlanePoint pixel{numbers.Between(0, 20'000), numbers.Between(0, 20'000)};
        points.push_back({i, pixel, ground(pixel)});
    }
    return points;
}

/// Every corner of the image is within `pixels` of the position from `ground`.
template <class Ground>
void ExpectSame(const Fit& fit, Ground ground, double pixels) {
    for (PlanePoint pixel : {PlanePoint{0, 0}, {20'000, 0}, {0, 20'000}, {20'000, 20'000}}) {
        std::optional<PlanePoint> back = fit.Pixel(ground(pixel), {10'000, 10'000});
        ASSERT_TRUE(back);
        EXPECT_NEAR(back->x, pixel.x, pixels);
        EXPECT_NEAR(back->y, pixel.y, pixels);
    }
    EXPECT_LT(fit.Error().pixels, pixels);
}

TEST(FitTest, PointsOnAKnownTransformGiveItBack) {
    Numbers numbers;
    for (int round = 0; round < 50; ++round) {
        double scale = std::pow(10, numbers.Between(-3, 2)), turn = numbers.Between(-3.2, 3.2);
        double cosine = scale * std::cos(turn), sine = scale * std::sin(turn),
               shear = numbers.Between(-0.3, 0.3);
        double east = numbers.Between(0, 7e6), north = numbers.Between(-1e6, 1e7);
        double bend = scale * numbers.Between(-1e-6, 1e-6);
        auto similar = [&](PlanePoint p) {
            return PlanePoint{east + cosine * p.x + sine * p.y, north + sine * p.x - cosine * p.y};
        };
        auto affine = [&](PlanePoint p) {
            return PlanePoint{similar(p).x + shear * scale * p.y, similar(p).y};
        };
        auto bent = [&](PlanePoint p) {
            return PlanePoint{affine(p).x + bend * p.x * p.y, affine(p).y - bend * p.y * p.y};
        };
        ExpectSame(Fit(PointsOf(numbers, 2, similar)), similar, 1e-3);
        ExpectSame(Fit(PointsOf(numbers, 3 + round % 5, affine)), affine, 1e-3);
        ExpectSame(Fit(PointsOf(numbers, 7 + round % 5, bent), Fit::Order::Second), bent, 1e-3);
    }
}

/// Points on an image that has a world file, with the ground positions that it gives them.
TEST(FitTest, PointsTakenOffAGeoreferencedImageGiveItsWorldFileBack) {
    Numbers numbers;
    for (int round = 0; round < 50; ++round) {
        double scale = std::pow(10, numbers.Between(-3, 2)), turn = numbers.Between(-3.2, 3.2);
        formats::WorldFile world{scale * std::cos(turn),  scale * std::sin(turn),
                                 scale * std::sin(turn),  -scale * numbers.Between(0.5, 2) * std::cos(turn),
                                 numbers.Between(0, 7e6), numbers.Between(-1e6, 1e7)};
        PointEntries entries;
        for (const ControlPoint& point : PointsOf(numbers, 3 + round % 5, [](PlanePoint p) { return p; }))
            AddPoint(entries, {std::round(point.pixel.x * 100) / 100, std::round(point.pixel.y * 100) / 100});
        for (PointEntry& entry : entries)
            entry.ground = ExactGroundEntry(world.Ground(*ReadNumberPair(entry.pixel)));
        formats::WorldFile back =
            formats::ParseWorldFile(formats::WorldFileText(Fit(PointsForFit(entries)).TermsAt({0, 0})));
        for (PlanePoint pixel : {PlanePoint{0, 0}, {20'000, 0}, {0, 20'000}, {20'000, 20'000}}) {
            PlanePoint found = world.Pixel(back.Ground(pixel));
            EXPECT_NEAR(found.x, pixel.x, 1e-6 + 1e-8 / scale);
            EXPECT_NEAR(found.y, pixel.y, 1e-6 + 1e-8 / scale);
        }
    }
}

TEST(FitTest, ShowsTheWorstPointFirst) {
    std::vector<ControlPoint> points = {{1, {0, 0}, {1e6, 2e6}},
                                        {2, {1000, 0}, {1e6 + 500, 2e6}},
                                        {3, {1000, 800}, {1e6 + 500, 2e6 - 400}},
                                        {5, {0, 800}, {1e6, 2e6 - 400}},
                                        {7, {600, 400}, {1e6 + 300, 2e6 - 190}}};
    Fit fit(points);
    EXPECT_EQ(fit.Residuals().front().number, 7);
    EXPECT_NEAR(fit.Residuals().front().metres, 7.97, 0.05);
    EXPECT_NEAR(fit.Residuals().front().pixels, 15.9, 0.1);
    EXPECT_EQ(fit.Description().English(),
              "5 control points, affine fit by least squares: a pixel is 0.5000 on the ground, the image "
              "rotated by "
              "0.09 degrees anticlockwise");
    EXPECT_FALSE(fit.IsMirrored());
    for (ControlPoint& point : points) std::swap(point.ground.x, point.ground.y);
    EXPECT_TRUE(Fit(points).IsMirrored());
}

TEST(FitTest, RefusesWhatDeterminesNoFit) {
    struct Row {
        std::vector<ControlPoint> points;
        Fit::Order order;
        const char* reason;
    };
    auto first = Fit::Order::First, second = Fit::Order::Second;
    std::vector<ControlPoint> circle;
    for (int i = 0; i < 8; ++i) {
        PlanePoint pixel{1000 + 900 * std::cos(i), 1000 + 900 * std::sin(i)};
        circle.push_back({i + 1, pixel, {pixel.x, -pixel.y}});
    }
    const Row rows[] = {
        {{}, first, "a fit needs at least 2 control points and has 0"},
        {{{1, {1, 1}, {2, 2}}}, first, "a fit needs at least 2 control points and has 1"},
        {{{1, {1, 1}, {2, 2}}, {2, {1, 1}, {3, 3}}},
         first,
         "all control points have the same position on the image"},
        {{{1, {1, 1}, {2, 2}}, {2, {5, 1}, {2, 2}}},
         first,
         "all control points have the same ground position"},
        {{{1, {0, 0}, {1e6, 1e6}}, {2, {500, 500.1}, {2e6, 2e6}}, {3, {900, 900}, {3e6, 1e6}}},
         first,
         "all 3 control points are on one line of the image; add one beside that line"},
        {{{1, {0, 0}, {1e6, 1e6}}, {2, {500, 0}, {2e6, 2e6}}, {3, {900, 900}, {3e6, 3e6}}},
         first,
         "the ground positions of all 3 control points are on one line; check their values"},
        {{{1, {0, 0}, {1e300, 1}}, {2, {5, 0}, {-1e300, 2}}},
         first,
         "the control points have values that are too large to compute with"},
        {{{1, {1, 1}, {2, 2}}, {2, {5, 1}, {3, 2}}},
         second,
         "a fit of second order needs at least 6 control points and has 2"},
        {circle, second,
         "the control points are on one curve of second order; spread them over the image, or fit in first "
         "order"},
    };
    for (const Row& row : rows) {
        try {
            Fit fit(row.points, row.order);
            ADD_FAILURE() << "fitted: " << row.reason;
        } catch (const FitError& error) {
            EXPECT_STREQ(error.what(), row.reason);
        }
    }
}

TEST(WorldFileTest, ReadsWhatOthersWriteAndRefusesTheRest) {
    struct Row {
        const char *text, *result;
    };
    const Row rows[] = {
        {"2.5\r\n0.000\r\n0.000\r\n-2.5\r\n412300.125\r\n284150\r\n", ""},
        {"\xEF\xBB\xBF  2,5 \n0\n0\n-2,5\n+412300.125\n2.8415e5", ""},
        {"2.5\n0\n0\n-2.5\n412300.125\n", "line 6: a world file has six lines, this one ends before its Y"},
        {"2.5\n0\n\n-2.5\n1\n1\n", "line 3: the second rotation term is not a number"},
        {"2.5 m\n0\n0\n-2.5\n1\n1\n", "line 1: the pixel size in x is not a number"},
        {"nan\n0\n0\n-2.5\n1\n1\n", "line 1: the pixel size in x is not a number"},
        {"0\n0\n0\n0\n1\n1\n", "its terms give the image no area on the ground"},
        {"1e200\n0\n0\n-1e200\n1\n1\n", "its terms give the image no area on the ground"},
        {"", "line 1: a world file has six lines, this one ends before its pixel size in x"},
    };
    for (const Row& row : rows) {
        std::string result;
        try {
            EXPECT_EQ(formats::WorldFileText(formats::ParseWorldFile(row.text)),
                      "2.500\r\n0.000\r\n0.000\r\n-2.500\r\n412300.125\r\n284150.000\r\n");
        } catch (const platform::ReadError& error) {
            result = error.what();
        }
        EXPECT_EQ(result, row.result) << row.text;
    }
    EXPECT_EQ(
        formats::WorldFileText({1e-9, -0.0, 0.1, -1.0 / 3, 1e21, 5}),
        "0.000000001\r\n0.000\r\n0.100\r\n-0.3333333333333333\r\n1000000000000000000000.000\r\n5.000\r\n");
    for (auto [image, world] : {std::pair("a.b/plan.jpg", "a.b/plan.jgw"),
                                {"P.TIFF", "P.TFW"},
                                {"x.bmp", "x.bpw"},
                                {"x.Jpeg", "x.Jgw"},
                                {"a.b/plan", "a.b/plan.wld"}})
        EXPECT_EQ(formats::WorldFilePath(image), world);
}

TEST(PointEntriesTest, CountsUpToTheFirstThatIsNotComplete) {
    PointEntries entries = ParsePointText(
        "1P=10,20\r\n1G=400000,300000\nnonsense\n2G = 400100,300000\n2P=50,20\n"
        "3P=70,90\n3G=\n4P=1,1\n4G=5,5\n99999999P=1,1\n");
    EXPECT_EQ(CountComplete(entries), 2U);
    EXPECT_EQ(PointsForFit(entries).size(), 2U);
    EXPECT_FALSE(AreDegrees(entries));
    EXPECT_EQ(AddPoint(entries, {7.5, 8}), 5);
    entries[0].pixel.clear();
    EXPECT_EQ(AddPoint(entries, {7.5, 8}), 1);
    EXPECT_EQ(ParsePointText(PointText(entries)), entries);
    EXPECT_TRUE(AreDegrees(ParsePointText("1P=1,1\n1G=359.9,359.9\n2P=2,2\n2G=-1,0\n")));
    EXPECT_FALSE(AreDegrees(ParsePointText("1P=1,1\n1G=359.9,359.9\n2P=2,2\n2G=-360,0\n")));
    PointEntries mixed = ParsePointText("1P=1,1\n1G=52,1\n2P=2,2\n2G=400000,300000\n");
    mixed[1].isLeftOut = true;
    EXPECT_TRUE(AreDegrees(mixed));
    EXPECT_THROW(PointsForFit(ParsePointText("1P=1,x\n1G=5,5\n")), FitError);
    EXPECT_THROW(PointsForFit(ParsePointText("1P=1,1\n1G=52.5N,1.5W\n")), FitError);
}

TEST(GeorefFileTest, KeepsEveryPointAndOtherSections) {
    test::TempFolder folder;
    std::string path =
        folder.Write("plan.INI", "[Other]\r\nkey=value\r\n[georef]\r\n9G=old,old\r\n[Last]\r\n;end");
    GeorefFile file;
    file.points = {{"1,2", "3,4"}, {"5,6", "7,8", true}, {"9,10", "11,12"}, {},
                   {"13,14", ""},  {"15,16", "17,18"}};
    file.width = 1000;
    file.height = 800;
    file.rotate = true;
    file.order = Fit::Order::Second;
    for (int time = 0; time < 2; ++time) WriteGeorefFile(path, file);
    EXPECT_EQ(
        test::TempFolder::Read(path),
        "[Other]\r\nkey=value\r\n[Last]\r\n;end\r\n"
        "[GEOREF]\r\n1G=3,4\r\n1P=1,2\r\n2G=11,12\r\n2P=9,10\r\nSIZE=1000,800\r\nROTATE=1\r\nORDER=2\r\n"
        "[GEOREF_ASIDE]\r\nCOUNT=6\r\n2G=7,8\r\n2P=5,6\r\n2OUT=1\r\n4G=\r\n4P=\r\n5G=\r\n5P=13,14\r\n"
        "6G=17,18\r\n6P=15,16\r\n");
    GeorefFile read = ReadGeorefFile(path);
    EXPECT_EQ(read.points, file.points);
    EXPECT_TRUE(read.width == 1000 && read.height == 800 && read.rotate && read.order == Fit::Order::Second);
    EXPECT_TRUE(ReadGeorefFile(folder / "none.INI").points.empty());
    // Others may leave numbers out.
    EXPECT_EQ(ParseGeorefFile("[GEOREF]\n1P=1,1\n1G=2,2\n3G=4,4\n3P=3,3\n99999G=1,1\n").points[2].pixel,
              "3,3");
    GeorefFile hostile = ParseGeorefFile(
        "[GEOREF]\n1G=,\x01\xFF\n1P=,\nSIZE=-1,1e99\nROTATE=yes\n[GEOREF_ASIDE]\nCOUNT=99999999999\n2P=1,"
        "1\n\xFF[\n");
    EXPECT_EQ(hostile.points.size(), 2U);
    EXPECT_TRUE(hostile.width == 0 && hostile.height == 0 && !hostile.rotate);
}

TEST(QgisPointsTest, ReadsBothVersionsAndWritesWhatItReads) {
    PointEntries expected = {{"10.5,20", "400000,300000"}, {"30,40", "400100,299900", true}};
    EXPECT_EQ(
        ParseQgisPoints("mapX,mapY,pixelX,pixelY,enable\n400000,300000,10.5,-20,1\n400100,299900,30,-40,0\n"),
        expected);
    EXPECT_EQ(ParseQgisPoints("#CRS: PROJCRS[\"a,b\"]\r\nmapX,mapY,sourceX,sourceY,enable,dX,dY,residual\r\n"
                              "400000,300000,10.5,-20,1,0.1,0.2,0.3\r\n400100,299900,30,-40,0,0,0,0\r\n"),
              expected);
    EXPECT_EQ(ParseQgisPoints(QgisPointsText(expected)), expected);
    EXPECT_THROW(ParseQgisPoints("mapX,mapY\n1,2,3\n"), platform::ReadError);
    EXPECT_THROW(ParseQgisPoints("\x89PNG\r\n"), platform::ReadError);
    EXPECT_THROW(ParseQgisPoints("nan,1,2,3,1\n"), platform::ReadError);
    // Time grows with the line, not with its square.
    EXPECT_TRUE(ParseQgisPoints("mapX" + std::string(5'000'000, ',')).empty());
    try {
        ParseQgisPoints("mapX,mapY\n" + std::string(5'000'000, '1') + "x\n");
        ADD_FAILURE();
    } catch (const platform::ReadError& error) {
        EXPECT_LT(std::string(error.what()).size(), 200U);
    }
}

}  // namespace

}  // namespace vexlator::georef
