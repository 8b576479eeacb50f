// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "CoordsTest.h"
#include "Ntv2Grid.h"

namespace vexlator::test {
namespace {

using coords::frmLatLng;

/// A point of Ordnance Survey's guide to coordinate systems: 52 39 27.2531 north, 1 43 4.5177 east on OSGB36.
constexpr double easting = 651409.903, northing = 313177.270;

/// A grid with a recognisable shift: 0.001 degrees to the north, `thousandths` to the east.
std::string Grid(float thousandths) {
    return Ntv2Grid(3.6F, 3.6F * thousandths).Bytes();
}
/// The guide's point shifted by such a grid.
std::string Shifted(int thousandths) {
    return "52.658570 1." + std::to_string(717922 + 1000 * thousandths);
}

class CorrectionGridTest : public CoordsTest {};

TEST_F(CorrectionGridTest, ShiftsThePublishedPointBothWays) {
    folder.Write("inst/OSTN02.INT", Grid(2));
    frmLatLng form(run);
    EXPECT_TRUE(ui.messages.empty());
    auto texts = form.GridToLatLng(easting, northing, 24.7, false);
    ASSERT_TRUE(texts);
    EXPECT_EQ(texts->first + " " + texts->second, Shifted(2));
    EXPECT_EQ(texts->height, "24.700");
    auto grid = form.LatLngToGrid("52.6585703", "1.7199216", "24.7");
    ASSERT_TRUE(grid);
    EXPECT_NEAR(std::stod(grid->first), easting, 0.01);
    EXPECT_NEAR(std::stod(grid->second), northing, 0.01);
    EXPECT_EQ(grid->height, "24.700");
}

/// The choice between several files: by name first, then by folder.
TEST_F(CorrectionGridTest, TakesTheFirstFileInOrder) {
    struct Place {
        const char* file;
        int thousandths;
    };
    // From the last choice to the first: each new file replaces the earlier ones.
    for (auto [file, thousandths] : {
             Place{"proj/OSTN15_NTv2_OSGBtoETRS.gsb", 1},
             Place{"proj/uk_os_OSTN15_NTv2_OSGBtoETRS.tif", 2},
             Place{"inst/uk_os_OSTN15_NTv2_OSGBtoETRS.tif", 3},
             Place{"inst/Resources/uk_os_OSTN15_NTv2_OSGBtoETRS.tif", 4},
             Place{"drives/C/windows/OSTN97.INT", 5},
             Place{"drives/C/Program Files/Common Files/gorvane/OSTN97.INT", 6},
             Place{"drives/C/windows/OSTN02.INT", 7},
             Place{"inst/ostn02.int", 8},
             Place{"inst/Resources/OSTN02.INT", 9},
             Place{"drives/C/Program Files/Common Files/gorvane/OSTN02.INT", 10},
         }) {
        folder.Write(file, Grid(static_cast<float>(thousandths)));
        frmLatLng form(run);
        EXPECT_EQ(LatLng(form, easting, northing), Shifted(thousandths)) << file;
        std::string name = std::filesystem::path(file).filename();
        EXPECT_TRUE(name.ends_with(".gsb") || form.Description().find(name) != std::string::npos)
            << form.Description();
    }
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(CorrectionGridTest, WithoutAFileSaysSoOnceAndConvertsNothing) {
    folder.Write("inst/OSTN02.INT", "");
    frmLatLng form(run);
    EXPECT_EQ(LatLng(form, easting, northing), "");
    EXPECT_FALSE(form.LatLngToGrid("52", "1", "0"));
    std::vector<util::PlanePoint> points{{easting, northing}};
    EXPECT_EQ(form.GridToLatLng(points), 1U);
    EXPECT_EQ(points[0], (util::PlanePoint{easting, northing}));
    EXPECT_EQ(ui.messages,
              std::vector<std::string>{"No Correction File Found: put uk_os_OSTN15_NTv2_OSGBtoETRS.tif (or "
                                       "OSTN02.INT, OSTN97.INT) into " +
                                       (folder / "inst/Resources")});
}

TEST_F(CorrectionGridTest, ADamagedFileIsToldAndNotReplacedByAnother) {
    folder.Write("inst/OSTN97.INT", Grid(1));
    for (std::string bytes : {std::string("not a grid"), Grid(1).substr(0, 200), std::string(4000, '\xFF')}) {
        std::string path = folder.Write("inst/OSTN02.INT", bytes);
        ui.messages.clear();
        frmLatLng form(run);
        EXPECT_EQ(LatLng(form, easting, northing), "");
        ASSERT_EQ(ui.messages.size(), 1U);
        EXPECT_EQ(ui.messages[0].find(path + ": cannot be used as a grid"), 0U) << ui.messages[0];
    }
    folder.Write("inst/OSTN02.INT", Grid(1).substr(0, Grid(1).size() - 200));
    frmLatLng cutInItsNodes(run);
    EXPECT_EQ(LatLng(cutInItsNodes, 440000, 330000), "");
}

/// A wrong position is worse than none.
TEST_F(CorrectionGridTest, OutsideTheGridThereIsNoResult) {
    folder.Write("inst/OSTN02.INT", Grid(1));
    frmLatLng form(run);
    const util::PlanePoint outside[] = {{400000, 100000}, {100000, 300000}, {-5e6, 300000},
                                        {easting, 1e300}, {NAN, northing},  {easting, INFINITY}};
    for (util::PlanePoint point : outside)
        EXPECT_EQ(LatLng(form, point.x, point.y), "") << point.x << " " << point.y;
    const std::pair<const char*, const char*> places[] = {
        {"50", "-2"}, {"52", "-4"}, {"91", "-2"}, {"52", "1e300"}, {"nan", "-2"}, {"", ""}, {"52 N", "-2"}};
    for (auto [latitude, longitude] : places)
        EXPECT_FALSE(form.LatLngToGrid(latitude, longitude, "0")) << latitude << " " << longitude;
}

TEST_F(CorrectionGridTest, AnglesReadBackAsTheSameDegrees) {
    folder.Write("inst/OSTN02.INT", Grid(1));
    frmLatLng form(run);
    for (double east = 340000; east < 650000; east += 31415.926) {
        auto angles = form.GridToLatLng(east, 301234.5, 0, true);
        ASSERT_TRUE(angles);
        EXPECT_EQ(angles->first.substr(0, 5), "052.3") << angles->first;
        auto back = form.LatLngToGrid(angles->first, angles->second, "0");
        ASSERT_TRUE(back);
        EXPECT_NEAR(std::stod(back->first), east, 0.0006);
        EXPECT_NEAR(std::stod(back->second), 301234.5, 0.0006);
    }
}

TEST_F(CorrectionGridTest, WholeArraysKeepWhatFailsAndRoundLikeTexts) {
    folder.Write("inst/OSTN02.INT", Grid(1));
    frmLatLng form(run);
    std::vector<util::PlanePoint> points;
    std::vector<double> heights;
    // Enough for more than one block, in an order unlike the plane's. Every seventh is outside the grid.
    for (std::uint32_t i = 0, mix = 1; i < 300000; ++i, mix = mix * 1664525 + 1013904223) {
        points.push_back({340000.25 + mix % 300000, i % 7 == 0 ? 1e6 : 200000.125 + mix / 65536});
        heights.push_back(i * 0.001);
    }
    std::vector<util::PlanePoint> original = points;
    EXPECT_EQ(form.GridToLatLng(points, heights), (300000U + 6) / 7);
    for (std::size_t i = 0; i < points.size(); i += 9973) {
        auto texts = form.GridToLatLng(original[i].x, original[i].y, 0, false);
        ASSERT_EQ(texts.has_value(), i % 7 != 0) << i;
        util::PlanePoint expected =
            texts ? util::PlanePoint{std::stod(texts->second), std::stod(texts->first)} : original[i];
        EXPECT_EQ(points[i], expected) << i;
        EXPECT_DOUBLE_EQ(heights[i], static_cast<double>(i) * 0.001);
    }
    EXPECT_EQ(form.LatLngToGrid(points), (300000U + 6) / 7);
    EXPECT_NEAR(points[1].x, original[1].x, 0.1);
    EXPECT_NEAR(points[1].y, original[1].y, 0.1);
    heights.pop_back();
    EXPECT_THROW(form.GridToLatLng(points, heights), std::invalid_argument);
}

}  // namespace
}  // namespace vexlator::test
