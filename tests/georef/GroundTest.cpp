// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/CoordsTest.h"
#include "georef/Ground.h"
#include "georef/GroundConversion.h"
#include "util/Numbers.h"

namespace vexlator::georef {

namespace {

/// As in "grid 651409.8 313177.4" and "degrees 1.716 52.657979 known"; a reason for invalid input.
std::string Understood(std::string_view typed) {
    GroundReading reading = ReadGround(typed);
    if (reading.kind == GroundKind::None) return reading.said.English();
    auto number = [](double value) { return " " + util::FormatShortest(util::RoundFixed(value, 6)); };
    return (reading.kind == GroundKind::Grid ? "grid" : "degrees") + number(reading.place.x) +
           number(reading.place.y) + (reading.isOrderKnown ? " known" : "");
}

struct Row {
    const char *typed, *understood;
};

constexpr Row rows[] = {
    {"651409.804,313177.448", "grid 651409.804 313177.448"},
    {" 651409 313177 ", "grid 651409 313177"},
    {"651409,5;313177,25", "grid 651409.5 313177.25"},
    {"651409,5 313177,25", "grid 651409.5 313177.25"},
    {"313177N 651409E", "grid 651409 313177 known"},
    {"-100,5000000", "grid -100 5000000"},
    {"TG 51409 13177", "grid 651409 313177 known"},
    {"tg5140913177", "grid 651409 313177 known"},
    {"TG514131", "grid 651400 313100 known"},
    {"TG 51409.8 13177.4", "grid 651409.8 313177.4 known"},
    {"SV 00000 00000", "grid 0 0 known"},
    {"HP 62 11", "grid 462000 1211000 known"},
    {"O 159 346", "grid 315900 234600 known"},
    {"N 15904 34671", "grid 215904 234671 known"},
    {"AA 123 456", "\"AA 123 456\" is not understood"},
    {"TG 514 13177", "\"TG 514 13177\" is not understood"},
    {"52.657979,1.716073", "degrees 1.716073 52.657979"},
    {"52.5 -1.25", "degrees -1.25 52.5"},
    {"120.5,-35", "degrees 120.5 -35 known"},
    {"52.5N 1.25W", "degrees -1.25 52.5 known"},
    {"W1.25, N52.5", "degrees -1.25 52.5 known"},
    {"1.25\xC2\xB0W 52.5\xC2\xB0N", "degrees -1.25 52.5 known"},
    {"52 30, -1 15", "degrees -1.25 52.5"},
    {"52 30 1 15", "degrees 1.25 52.5"},
    {"52 30.6 N 1 15.3 W", "degrees -1.255 52.51 known"},
    {"52\xC2\xB0"
     "30' 1\xC2\xB0"
     "15'",
     "degrees 1.25 52.5"},
    {"52\xC2\xB0"
     "30\xE2\x80\xB2"
     "36\xE2\x80\xB3N, 1\xC2\xB0"
     "15\xE2\x80\xB2"
     "18\xE2\x80\xB3W",
     "degrees -1.255 52.51 known"},
    {"52 30 36 1 15 18", "degrees 1.255 52.51"},
    {"52,30,36,-0,15,18", "degrees -0.255 52.51"},
    {"52d30m36sN 1d15m18sW", "degrees -1.255 52.51 known"},
    {"52:30:36S 1:15:18E", "degrees 1.255 -52.51 known"},
    {"N52 30 36 W1 15 18", "degrees -1.255 52.51 known"},
    {"52 30'36'' -1 15'18''", "degrees -1.255 52.51"},
    {"052.30'36\"0,-001.15'18\"0", "degrees -1.255 52.51"},
    {"", "no position yet"},
    {"52.5", "a position is two values"},
    {"52 75 1 15", "minutes and seconds are below 60"},
    {"52.5 30, 1 15", "only the last part of an angle has decimals"},
    {"52.5N -1.25W", "an angle has a sign or a letter, not both"},
    {"52.5N 1.25N", "one value needs N or S, the other E or W"},
    {"95N 1W", "a latitude beyond 90 degrees"},
    {"52.5,north", "the letter N is in the place of a number"},
    {"1e5,2", "a position is two values"},
    {"nan,inf", "\"an,inf\" is not understood"},
    {"\xFF\xFE,1", "\"\xFF\xFE,1\" is not understood"},
};

TEST(GroundTest, UnderstandsEveryUsualNotation) {
    for (const Row& row : rows) EXPECT_EQ(Understood(row.typed), row.understood) << row.typed;
}

class GroundConversionTest : public test::CoordsTest {};

TEST_F(GroundConversionTest, FindsTheOrderThatHasAPlaceInTheGrid) {
    if (!HasOstn15()) GTEST_SKIP() << "no correction grid";
    InstallOstn15("inst/Resources");
    coords::frmLatLng grid(run);
    for (const char* typed :
         {"52.658007833,1.716073972", "1.716073972,52.658007833", "52 39 28.8282 N 1 42 57.8663 E"})
        EXPECT_EQ(ToGridEntry(typed, grid).entry, "651409.805,313177.452")
            << typed << ToGridEntry(typed, grid).said.English();
    PointEntries entries = ParsePointText("1P=0,0\n1G=52.658007833,1.716073972\n2P=5,5\n2G=1,2\n3G=\n");
    EXPECT_EQ(ConvertGroundToGrid(entries, grid), 1U);
    EXPECT_EQ(entries[0].ground, "651409.805,313177.452");
    EXPECT_EQ(entries[1].ground, "1,2");
}

/// The corners converted by the projection library's own tool, divided by the image's size.
TEST_F(GroundConversionTest, ProjectsAWorldFileByItsCorners) {
    formats::WorldFile degrees = formats::ParseWorldFile("0.00001\n0\n0\n-0.00001\n-1.5\n52.1\n");
    auto check = [&](const std::string& peer) {
        coords::frmLatLng grid(run);
        std::vector<test::Triple> corners = Peer(peer, {{-1.5, 52.1, 0}, {-1.49, 52.092, 0}});
        auto world = ProjectWorldFile(degrees, 1000, 800, grid);
        ASSERT_TRUE(world);
        EXPECT_NEAR(world->c, corners[0][0], 0.0006);
        EXPECT_NEAR(world->f, corners[0][1], 0.0006);
        EXPECT_NEAR(world->a, (corners[1][0] - corners[0][0]) / 1000, 2e-6);
        EXPECT_NEAR(world->e, (corners[1][1] - corners[0][1]) / 800, 2e-6);
        std::string text = formats::WorldFileText(*world);
        EXPECT_NE(text.find("\r\n0.000\r\n0.000\r\n-1."), std::string::npos) << text;
    };
    {
        coords::frmLatLng grid(run);
        EXPECT_FALSE(ProjectWorldFile(degrees, 1000, 800, grid)) << "converted without a grid";
    }
    Define("EPSG:32630");
    check("cct -d 4 +proj=utm +zone=30 +ellps=WGS84");
    if (!HasOstn15()) return;
    run.WriteIni("GPS", "TRANSFORMATION", "");
    InstallOstn15("inst/Resources");
    InstallOstn15("proj");
    check(
        "cct -d 4 +proj=pipeline +step +inv +proj=hgridshift +grids=uk_os_OSTN15_NTv2_OSGBtoETRS.tif "
        "+step +proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 +y_0=-100000 +ellps=airy");
}

}  // namespace

}  // namespace vexlator::georef
