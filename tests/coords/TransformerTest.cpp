// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "CoordsTest.h"
#include "Ntv2Grid.h"
#include "util/Numbers.h"

namespace vexlator::test {
namespace {

using coords::frmLatLng;

const std::string question = "Veltrom Coordinate Transformer Parameters Failed To Load \nMore ?";
const std::string utm30 = "+proj=utm +zone=30 +datum=WGS84";

class TransformerTest : public CoordsTest {};

/// One system, UTM zone 30 on WGS 84, in every form that a file can have.
TEST_F(TransformerTest, ReadsDefinitionsInTheirForms) {
    // A point on the zone's central meridian: 500000 east, at 3 degrees west.
    const std::string wkt =
        R"(PROJCS["WGS_1984_UTM_Zone_30N",GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984",)"
        R"(SPHEROID["WGS_1984",6378137,298.257223563]],PRIMEM["Greenwich",0],UNIT["Degree",0.0174532925199433]],)"
        R"(PROJECTION["Transverse_Mercator"],PARAMETER["False_Easting",500000],PARAMETER["False_Northing",0],)"
        R"(PARAMETER["Central_Meridian",-3],PARAMETER["Scale_Factor",0.9996],PARAMETER["Latitude_Of_Origin",0],)"
        R"(UNIT["Meter",1]])";
    for (const std::string& text :
         {std::string("EPSG:32630"), std::string("32630\r\n"), "\"" + wkt + "\"\r\n", wkt, utm30,
          "\xEF\xBB\xBF" + utm30 + " \n", "\" " + utm30 + "\"", utm30 + " +type=crs",
          std::string("+init=epsg:32630"),
          std::string("+proj=pipeline +step +inv +proj=utm +zone=30 +ellps=WGS84"),
          std::string("+proj=pipeline +step +inv +proj=utm +zone=30 +ellps=WGS84\n"
                      "+step +proj=unitconvert +xy_in=rad +xy_out=deg")}) {
        Define(text);
        frmLatLng form(run);
        std::string latLng = LatLng(form, 500000, 5700000);
        EXPECT_EQ(latLng, "51.451182 -3.000000") << text;
        auto grid = form.LatLngToGrid("51.451182", "-3", "12.5");
        ASSERT_TRUE(grid) << text;
        EXPECT_EQ(grid->first, "500000.000");
        EXPECT_NEAR(std::stod(grid->second), 5700000, 0.06);
        EXPECT_EQ(grid->height, "12.500");
    }
    EXPECT_TRUE(ui.messages.empty() && ui.questions.empty());
}

TEST_F(TransformerTest, AsksOnceForEachDirectionWhenItCannotLoad) {
    Define("\"GRID OF MY OWN\u00E9\"\r\n");
    ui.answers = {true, false};
    frmLatLng form(run);
    EXPECT_TRUE(ui.questions.empty());
    for (int times = 0; times < 3; ++times) {
        EXPECT_EQ(LatLng(form, 500000, 5700000), "");
        EXPECT_FALSE(form.LatLngToGrid("51", "-3", "0"));
    }
    EXPECT_EQ(ui.questions, (std::vector<std::string>{question, question}));
    EXPECT_EQ(ui.messages, std::vector<std::string>{"15\nGRID OF MY OWN\u00E9"});
    ASSERT_EQ(ui.reports.size(), 2U);
    EXPECT_EQ(ui.reports[0].find(folder / "system.dat: "), 0U) << ui.reports[0];
}

/// Definitions that would give rough results, or none, do not load.
TEST_F(TransformerTest, RefusesWhatIsNoSystemOrWouldBeRough) {
    for (const std::string& text :
         {std::string("+proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 +y_0=-100000 +ellps=airy"),
          std::string("WGS84 ellipsoid"), std::string("UTM grid system (northern hemisphere)"),
          std::string("\""), std::string("EPSG:9999999"),
          std::string("+proj=pipeline +step +proj=hgridshift +grids=nowhere.gsb"),
          std::string("ENGCRS[\"site\",EDATUM[\"peg\"],CS[Cartesian,2],AXIS[\"x\",east],AXIS[\"y\",north],"
                      "LENGTHUNIT[\"metre\",1]]"),
          std::string(100000, '['), std::string(3 << 20, 'x')}) {
        Define(text);
        ui.questions.clear();
        ui.reports.clear();
        frmLatLng form(run);
        EXPECT_EQ(LatLng(form, 500000, 5700000), "") << text.substr(0, 80);
        EXPECT_EQ(ui.questions.size(), 1U) << text.substr(0, 80);
        ASSERT_EQ(ui.reports.size(), 1U);
        EXPECT_GT(ui.reports[0].size(), (folder / "system.dat: ").size()) << text.substr(0, 80);
    }
}

TEST_F(TransformerTest, TellsOnceOfTheGridThatTheBestTransformationLacks) {
    Define("EPSG:27700");
    frmLatLng form(run);
    EXPECT_NEAR(util::NumberOf(LatLng(form, 651409.903, 313177.270)), 52.6580, 0.0001);
    EXPECT_TRUE(form.LatLngToGrid("52", "-1", "0"));
    EXPECT_TRUE(ui.questions.empty());
    ASSERT_EQ(ui.messages.size(), 1U);
    EXPECT_NE(ui.messages[0].find("uk_os_OSTN15_NTv2_OSGBtoETRS.tif"), std::string::npos) << ui.messages[0];
}

TEST_F(TransformerTest, FindsItsGridInTheProgramFolder) {
    Define("EPSG:27700");
    folder.Write("inst/OSTN15_NTv2_OSGBtoETRS.gsb", Ntv2Grid(3.6F, 7.2F).Bytes());
    frmLatLng form(run);
    EXPECT_EQ(LatLng(form, 651409.903, 313177.270), "52.658570 1.719922");
    EXPECT_EQ(LatLng(form, 400000, 900000), "") << "no other transformation outside the grid";
    EXPECT_TRUE(ui.messages.empty()) << ui.messages[0];
}

TEST_F(TransformerTest, LatLngInTheNameMeansNoConversion) {
    for (const char* name : {"LatLng.dat", "sub LATLNG folder/x.dat"}) {
        Define("anything", name);
        frmLatLng form(run);
        auto texts = form.GridToLatLng(-1.23456789, 51.5, 12.25, false);
        ASSERT_TRUE(texts);
        EXPECT_EQ(texts->first + " " + texts->second + " " + texts->height, "51.500000 -1.234568 12.25");
        auto grid = form.LatLngToGrid("051.30'00\"000000000", "-1.23456789", "7.50");
        ASSERT_TRUE(grid);
        EXPECT_EQ(grid->first + " " + grid->second + " " + grid->height, "-1.23456789 51.5 7.50");
        std::vector<util::PlanePoint> points{{-1.23456789, 51.5}};
        EXPECT_EQ(form.LatLngToGrid(points) + form.GridToLatLng(points), 0U);
        EXPECT_EQ(points[0], (util::PlanePoint{-1.234568, 51.5}));
        EXPECT_EQ(LatLng(form, 400000, 300000), "") << "metres are no degrees";
    }
    EXPECT_TRUE(ui.messages.empty());
}

}  // namespace
}  // namespace vexlator::test
