// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/kml/frmKML.h"
#include "export/photos/PhotoNames.h"
#include "platform/Files.h"
#include "support/ExportTest.h"
#include "support/Pictures.h"

#include <limits>

namespace vexlator::exporter {
namespace {

using drawing::Entity;
using drawing::Point;
using test::TempFolder;

/// Drawings that are already in degrees, unless the settings say otherwise.
class KmlExport : public test::ExportTest {
protected:
    KmlExport() {
        folder.Write("LatLng.txt", "none");
        Settings("");
        installation.Settings().ProgramFolder = folder.Path();
        drawing.setActiveLayer("TREE");
    }
    void Settings(const std::string& ini) {
        Ini("[GPS]\nTRANSFORMATION=" + (folder / "LatLng.txt") + "\n" + ini);
    }
    config::Outcome Export() {
        config::Outcome outcome = ExportTest::Export<frmKML>();
        kml = Out("Survey.KML");
        return outcome;
    }
    /// Every text between two others.
    std::vector<std::string> All(const std::string& before, const std::string& after) const {
        std::vector<std::string> found;
        for (std::size_t at = 0; (at = kml.find(before, at)) != std::string::npos;) {
            at += before.size();
            found.push_back(kml.substr(at, kml.find(after, at) - at));
        }
        return found;
    }
    std::vector<std::string> Coordinates() const { return All("<coordinates>", "</coordinates>"); }
    std::vector<std::string> Names() const { return All(" <Placemark>\r\n  <name>", "</name>"); }
    std::vector<std::string> Images() const { return All("<img src = \"", "\""); }

    std::string kml;
};

using Texts = std::vector<std::string>;

TEST_F(KmlExport, KindsAndNames) {
    Give(drawing.addPoint({1, 2, 3.5}), {{"ID", "T1"}, {"NOTE", "a\x01\x02"}});
    Give(drawing.addInsert({3, 4, 0}, "symbol", 1, 1, 0), {{"ID", ""}});
    drawing.addPolyline(std::vector<Point>{{1, 2, 0}, {3, 4, 5}});
    drawing.addPolyline(std::vector<Point>{{0, 0, 7}, {1, 0, 0}, {1, 1, 0}}).setClosed(true);
    drawing.addPolyline(std::vector<Point>{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 0}}).setClosed(true);
    drawing.addPolyline(std::vector<Point>{{8, 8, 0}, {9, 9, 0}}).setClosed(true);
    drawing.addPolyline(std::vector<Point>{{7, 7, 0}}).setClosed(true);
    drawing.addPolyline();
    drawing.addCircle({5, 5, 0}, 1);
    drawing.setActiveLayer("0");
    drawing.addPoint({1, 1, 0});
    drawing.setActiveLayer("FROZEN");
    drawing.addPoint({1, 1, 0});
    drawing.findLayer("FROZEN")->frozen = true;
    config::Outcome outcome = Export();
    EXPECT_EQ(outcome.layers, 1U);
    EXPECT_EQ(outcome.features, 8U);
    EXPECT_EQ(outcome.target, folder.Path() + "/out\\Survey.KML");
    EXPECT_EQ(Names(), (Texts{"T1", "TREE", "TREE", "TREE", "TREE", "TREE", "TREE", "TREE"}));
    EXPECT_EQ(
        Coordinates(),
        (Texts{"1.000000,2.000000,3.5", "3.000000,4.000000,0", "1.000000,2.000000,0\r\n3.000000,4.000000,5",
               "0.000000,0.000000,7\r\n1.000000,0.000000,0\r\n1.000000,1.000000,0\r\n0.000000,0.000000,7",
               "0.000000,0.000000,0\r\n1.000000,0.000000,0\r\n1.000000,1.000000,0\r\n0.000000,0.000000,0",
               "8.000000,8.000000,0\r\n9.000000,9.000000,0\r\n8.000000,8.000000,0", "7.000000,7.000000,0"}));
    EXPECT_EQ(All("<Polygon", ">").size(), 2U);
    EXPECT_EQ(All("<LineString", ">").size(), 2U);
    EXPECT_EQ(All("<Point", ">").size(), 3U);
    EXPECT_EQ(ui.labels.back(), "Completed!");
    EXPECT_TRUE(ui.reports.empty());
    EXPECT_EQ(run.Losses().Line(), "entities left out: TREE.circle 1; characters replaced: TREE.NOTE 2");
}

TEST_F(KmlExport, MetresNeverPassForDegrees) {
    drawing.addPoint({400000, 300000, 0}).xproperties().add("ID", "metres");
    drawing.addPoint({std::numeric_limits<double>::quiet_NaN(), 1, 0});
    drawing.addPolyline(std::vector<Point>{{1, 2, 0}, {1, 91, 0}});
    drawing.addPoint({-180, 90, 0});
    EXPECT_EQ(Export().features, 4U);
    EXPECT_EQ(Coordinates(), (Texts{"-180.000000,90.000000,0"}));
    EXPECT_EQ(ui.reports,
              (Texts{"TREE: 3 placemarks without a position, because it is outside the coordinate "
                     "conversion"}));
    // The same without any conversion: small coordinates in metres look like degrees.
    installation.Settings().IniFilePath = folder.Write("gv.ini", "");
    drawing.addPoint({50, 50, 0});
    EXPECT_EQ(Export().status, config::Outcome::Status::Failed);
    EXPECT_EQ(Coordinates(), (Texts{"-180.000000,90.000000,0"})) << "the document that was there";
    EXPECT_EQ(ui.messages.size(), 2U);
}

TEST_F(KmlExport, ManyMoreThanABatchKeepTheirOrder) {
    for (int i = 0; i < 70000; ++i)
        drawing.addPoint({i / 1000.0, 1, 0}).xproperties().add("ID", std::to_string(i));
    EXPECT_EQ(Export().features, 70000U);
    Texts names = Names(), places = Coordinates();
    ASSERT_EQ(places.size(), 70000U);
    EXPECT_EQ(names[65536], "65536");
    EXPECT_EQ(places[65535], "65.535000,1.000000,0");
    EXPECT_EQ(places[69999], "69.999000,1.000000,0");
}

TEST(PhotoNames, LeadNowhereElse) {
    const std::pair<const char*, const char*> cases[] = {
        {"IMG 1.jpg", "IMG%201.jpg"},
        {"sub\\IMG_1.JPG", "sub/IMG_1.JPG"},
        {"http://evil.example/a.jpg?x", "a.jpg%3Fx"},
        {"javascript:alert(1)//.jpg", ".jpg"},
        {"\"><script>.jpg", "%22%3E%3Cscript%3E.jpg"},
        {"caf\xC3\xA9#1%.jpg", "caf%C3%A9%231%25.jpg"},
        {"a\n.jpg", "a%0A.jpg"},
        {"c:/JOBS/out\\sub\\a.jpg", "sub/a.jpg"},
        {"C:\\jobs\\out\\..\\a.jpg", "a.jpg"},
        {"C:\\jobs\\outer\\sub\\a.jpg", "a.jpg"},
    };
    for (auto [value, address] : cases) EXPECT_EQ(EncodedPath(PhotoName(value, "C:\\jobs\\out")), address);
    EXPECT_EQ(ThumbnailName("IMG_1.JPG"), "s_IMG_1.BMP");
    EXPECT_EQ(ThumbnailName("sub/a.b.jpg"), "sub/s_a.b.BMP");
}

TEST_F(KmlExport, PhotographsOnTheWeb) {
    folder.Write("job/a b.jpg", test::JpegOf(800, 600));
    folder.Write("job/sub/c.JPG", test::JpegOf(80, 60));
    folder.Write("job/broken.jpg", "\xFF\xD8 no picture");
    folder.Write("out/s_old.BMP", "a thumbnail");
    drawing.properties().emplace_back("Source", folder / "job/a.JOB");
    for (const char* value : {"a b.jpg", "sub\\c.JPG", "broken.jpg"})
        drawing.addPoint({1, 2, 0}).xproperties().add("A", value);
    const std::string web =
        "[GENERAL]\nCompany=A & B\n[KML]\nWebBase=https://example.org/x?a=1&b=\"2\n[PHOTO]\nGoogleMaps=1\n";
    Settings(web);
    Export();
    const std::string base = "https://example.org/x?a=1&amp;b=%222/A%20%26%20B/";
    const Texts images{base + "s_a%20b.BMP", base + "sub/s_c.BMP", base + "s_broken.BMP"};
    EXPECT_EQ(Images(), images);
    EXPECT_EQ(All("<a href=\"", "</a>")[1], base + "sub/c.JPG\" target=\"_blank\">Open FullSize");
    EXPECT_EQ(platform::ListFiles(folder / "out"),
              (Texts{"a b.jpg", "broken.jpg", "s_a b.BMP", "s_old.BMP", "Survey.KML"}));
    EXPECT_EQ(platform::SizeOfFile(folder / "out/s_a b.BMP"), 54U + 240 * 180 * 3);
    EXPECT_EQ(platform::SizeOfFile(folder / "out/sub/s_c.BMP"), 54U + 80 * 60 * 3);
    ASSERT_EQ(ui.reports.size(), 1U);
    EXPECT_TRUE(ui.reports[0].starts_with("no thumbnail of " + (folder / "out") + "/broken.jpg: damaged: "))
        << ui.reports[0];
    Settings(web + "FullPath=1\n");
    Export();
    EXPECT_EQ(Images(), images);
}

TEST_F(KmlExport, PublishesWhenAskedTo) {
    Settings("[PHOTO]\nGoogleMaps=1\n");
    installation.Settings().AutoLaunchExport = true;
    std::string log = folder / "log";
    std::string program = folder.Write("gvSync.exe", "#!/bin/sh\necho \"$1|$2\" >'" + log + "'\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    ui.answers = {true};
    Export();
    EXPECT_EQ(ui.questions, (Texts{"Publish files on web now?"}));
    EXPECT_EQ(TempFolder::Read(log), "/FTPkml|" + (folder / "out/Survey.KML") + "\n");
    std::filesystem::remove(program);
    ui.answers = {true};
    Export();
    EXPECT_EQ(ui.messages, (Texts{program + ": cannot be started"}));
}

}  // namespace
}  // namespace vexlator::exporter
