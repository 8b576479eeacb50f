// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gpx/frmGPX.h"
#include "support/Installation.h"
#include "util/Text.h"

#include <cstdlib>

namespace vexlator::gpx {
namespace {

namespace fs = std::filesystem;

/// Trails in degrees, which are not converted.
class Gpx : public test::InstallationTest {
protected:
    Gpx() { run.WriteIni("GPS", "TRANSFORMATION", folder.Write("LatLng.dat", "x")); }
    /// The GPX file of a trail.
    std::string Convert(const std::string& trail) {
        frmGPX(run).ConvertTrailFile(folder.Write("Day.GXY", trail));
        return util::ReplaceAll(test::TempFolder::Read(folder / "Day.GPX"), "\r\n", "\n");
    }
    /// Definitions that convert only some points.
    void UseNationalGrid() { run.WriteIni("GPS", "TRANSFORMATION", folder.Write("grid.dat", "EPSG:27700")); }
    void BeStrict() { run.WriteIni("GPX", "Strict", "1"); }
    static std::size_t Count(const std::string& text, const std::string& part) {
        return util::CountOf(text, part);
    }
};

constexpr const char* twoFixes =
    "05/03/2021 14:07:33,-1.5,52.25,7.5\r\n05/03/2021 14:08:00,-1.25,52.5,8,more\r\n";

TEST_F(Gpx, StrictFilesNameTheirVersionAndHaveWaypointsFirst) {
    BeStrict();
    run.WriteIni("GPX", "WebBase", "http://a.b/?x=1&y=\"2\"");
    std::string text = Convert(twoFixes);
    EXPECT_NE(text.find("<gpx version=\"1.1\" creator=\"Gorvane WorkFlow\" "
                        "xmlns=\"http://www.topografix.com/GPX/1/1\">\n"),
              std::string::npos);
    EXPECT_NE(text.find("href=\"http://a.b/?x=1&amp;y=&quot;2&quot;\""), std::string::npos) << text;
    EXPECT_LT(text.find("Day End"), text.find(" <trk>"));
    EXPECT_EQ(Count(text,
                    "<trkpt lat=\"52.250000\" lon=\"-1.500000\">\n    <ele>7.5</ele>\n    "
                    "<time>2021-03-05T14:07:33</time>"),
              1U);
    EXPECT_EQ(Count(text, "<wpt"), 2U);
    EXPECT_EQ(Count(text, "<trkpt"), 2U);
}

TEST_F(Gpx, OddLines) {
    std::string text = Convert("05/03/2021,x,2\r\rD<&m\"\x80yyyy hh:mm:\x80.5,1e400,-90.5,4\n");
    EXPECT_EQ(Count(text, "<trkpt"), 3U);
    EXPECT_NE(text.find("<time>2021-03-05T</time>"), std::string::npos);
    EXPECT_NE(text.find("<trkpt lat=\"0.000000\" lon=\"0.000000\">\n    <ele>0</ele>\n    <time>--T</time>"),
              std::string::npos);
    EXPECT_NE(text.find("<time>yyyy-m&quot;-D&lt;Thh:mm:?.</time>"), std::string::npos) << text;
    BeStrict();
    text = Convert("05/03/2021,x,2\r05/03/2021,1,2\r\rD<&m\"\x80yyyy hh:mm:\x80.5,1e400,-90.5,4\n");
    EXPECT_EQ(Count(text, "<trkpt"), 1U);
    EXPECT_EQ(Count(text, "<time>"), 0U) << text;
}

TEST_F(Gpx, TimesOfTheCalendar) {
    for (const char* good : {"29/02/2024 00:00:00", "29/02/2000 00:00:00", "31/12/0001 23:59:59"})
        EXPECT_TRUE(TrailTime(good).IsValid()) << good;
    for (const char* bad :
         {"29/02/2023 00:00:00", "31/04/2024 00:00:00", "00/01/2024 00:00:00", "01/13/2024 00:00:00",
          "01/01/0000 00:00:00", "01/01/2024 24:00:00", "01/01/2024 00:60:00", "01/01/2024 1:00:00", ""})
        EXPECT_FALSE(TrailTime(bad).IsValid()) << bad;
}

TEST_F(Gpx, PositionsThatCannotBeConvertedHaveEmptyTextsOrAreLeftOut) {
    UseNationalGrid();
    const std::string trail = "t,400000,300000,5\nt,1e300,-1e300,5\nt,400100,300000,5\n";
    std::string text = Convert(trail);
    EXPECT_EQ(Count(text, "<trkpt lat=\"52."), 2U) << text;
    EXPECT_EQ(Count(text, "<trkpt lat=\"\" lon=\"\">\n    <ele></ele>"), 1U) << text;
    ASSERT_EQ(ui.reports.size(), 1U);
    EXPECT_NE(ui.reports[0].find("Day.GXY: 1 position without"), std::string::npos) << ui.reports[0];
    BeStrict();
    EXPECT_EQ(Count(Convert(trail), "<trkpt"), 2U);
    fs::remove(folder / "Day.GPX");
    EXPECT_EQ(Convert("t,1e300,1e300,5\n\n"), "");
}

TEST_F(Gpx, StrictFilesBeginAndEndWithAPositionThatIsKept) {
    BeStrict();
    std::string text = Convert(
        "\n31/12/2020 10:00:00,500,1,0\n\n01/01/2021 10:00:00,2,51,1e-7\n"
        "01/01/2021 11:00:00,3,52,0\n \t\nx,1,-91,0\n");
    EXPECT_NE(text.find("  <time>2021-01-01T10:00:00"), std::string::npos) << text;
    EXPECT_NE(text.find("lon=\"2.000000\">\n  <name>Day Start"), std::string::npos) << text;
    EXPECT_NE(text.find("lon=\"3.000000\">\n  <ele>0</ele>\n  <name>Day End"), std::string::npos) << text;
    EXPECT_EQ(Count(text, "<trkpt"), 2U);
    EXPECT_TRUE(
        ui.reports[0].ends_with("Day.GXY: 2 positions left out: no latitude and longitude within "
                                "the ranges of GPX"));
}

TEST_F(Gpx, LongTrailsAreConvertedInPieces) {
    UseNationalGrid();
    std::string trail;
    for (int i = 0; i < 70000; ++i) trail += "t," + std::to_string(400000 + i) + ",300000,5\n";
    std::string text = Convert(trail), last = text.substr(text.rfind("lon=\""), 15);
    EXPECT_EQ(Count(text, "<trkpt"), 70000U);
    EXPECT_EQ(Count(text, "Day Start"), 1U);
    EXPECT_EQ(Count(text, last), 2U) << last;
}

TEST_F(Gpx, OnlyTrailsWithoutGpxAreConverted) {
    for (const char* name : {"Day1.GXY", "day2.gxy", "Day3.GXY", "Day4.GXYZ"}) folder.Write(name, twoFixes);
    folder.Write("Day2.GPX", "there already");
    folder.Write("Day3.GPX", "");
    folder.Write("Day5.GXY", "");
    EXPECT_TRUE(frmGPX(run).ProcessAnyTrailData(folder.Path()));
    EXPECT_EQ(Count(test::TempFolder::Read(folder / "Day1.GPX"), "<trkpt"), 2U);
    EXPECT_EQ(test::TempFolder::Read(folder / "Day2.GPX"), "there already");
    EXPECT_EQ(Count(test::TempFolder::Read(folder / "Day3.GPX"), "<trkpt"), 2U);
    EXPECT_FALSE(fs::exists(folder / "Day4.GPX") || fs::exists(folder / "Day5.GPX"));
    EXPECT_EQ(ui.labels[0], "Processing:" + folder.Path() + "/Day1.GXY");
}

TEST_F(Gpx, OutsideReadersTakeBothLayouts) {
    auto shell = [&](const std::string& command) {
        return std::system((command + " >" + (folder / "log") + " 2>&1").c_str());
    };
    auto log = [&] { return test::TempFolder::Read(folder / "log"); };
    for (bool strict : {false, true}) {
        if (strict) BeStrict();
        Convert(
            "05/03/2021 14:07:33,-1.5,52.25,7.5\r\n<&>\"\x80/\x01,-1.25,52.5,8\r\n31/02/2021 "
            "14:07:33,200,1,1\n");
        for (const char* layer : {"track_points", "waypoints"}) {
            EXPECT_EQ(shell("ogrinfo -ro -so " + (folder / "Day.GPX") + " " + layer), 0) << log();
            int wanted = layer[0] == 't' && !strict ? 3 : 2;
            EXPECT_NE(log().find("Feature Count: " + std::to_string(wanted)), std::string::npos) << log();
        }
        EXPECT_EQ(shell("xmllint --noout " + (folder / "Day.GPX")), 0) << log();
    }
    EXPECT_EQ(
        shell("xmllint --noout --schema " VEXLATOR_SOURCE "/tests/gpx/gpx11.xsd " + (folder / "Day.GPX")), 0)
        << log();
}

}  // namespace
}  // namespace vexlator::gpx
