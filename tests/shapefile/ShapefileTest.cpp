// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Session.h"
#include "drawing/Drawing.h"
#include "export/shapefile/frmSHP.h"
#include "formats/dbf/DbfTable.h"
#include "formats/shapefile/ShapefileReader.h"
#include "import/shapefile/frmFromSHP.h"
#include "platform/Files.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"

#include <gtest/gtest.h>

namespace vexlator {
namespace {

using drawing::Drawing;
using drawing::Entity;
using drawing::Point;
using test::TempFolder;
using util::PlanePoint;

/// An installation with a run in it, and a folder for its data.
struct Office {
    Office() {
        config::SharedSettings& settings = session.Settings();
        settings.IniFilePath = folder.Write("gv.ini", "");
        settings.ConfigFolder = folder.Path();
        settings.ProgramFolder = folder.Path();
        settings.ATPDirectory = folder / "ATP";
        settings.SymbolsDirectory = folder / "Symbols";
        folder.Write("Resources/ESRI.PRJ", "PROJCS[...]");
        Drawing symbol;
        symbol.addCircle({}, 1);
        std::filesystem::create_directories(folder / "Symbols");
        std::filesystem::create_directories(folder / "ATP");
        std::filesystem::create_directories(folder / "out");
        symbol.saveAs(folder / "Symbols/DEFAULT.VDF");
    }
    config::Outcome Export(Drawing& drawing) {
        drawing.saveAs(folder / "a.VDF");
        return exporter::frmSHP(session).Start(folder / "a.VDF", folder / "out");
    }
    Drawing& Import(const std::string& files, config::Outcome* outcome = nullptr) {
        std::string first = folder / files.substr(0, files.find('|'));
        std::string rest = files.find('|') == std::string::npos ? "" : files.substr(files.find('|'));
        config::Outcome result = importer::frmFromSHP(session).Start(first, folder.Path(), rest);
        if (outcome) *outcome = result;
        imported.open(result.target);
        return imported;
    }
    /// All shapes of an exported layer: type, then points.
    std::string Shapes(const std::string& layer) const {
        platform::MappedFile shp(folder / ("out/" + layer + ".SHP")), shx(folder / ("out/" + layer + ".SHX"));
        formats::ShapefileReader reader(shp.Bytes(), shx.Bytes());
        std::string text;
        for (formats::ShapeRecord record; reader.Next(record);) {
            text += (text.empty() ? "" : "; ") + std::to_string(record.type);
            std::vector<PlanePoint> points(record.pointCount);
            record.CopyPoints(0, points);
            for (const PlanePoint& p : points)
                text += " " + std::to_string(int(p.x)) + "," + std::to_string(int(p.y));
        }
        return text;
    }
    /// All rows of an exported layer, values between bars.
    std::string Rows(const std::string& layer) const {
        platform::MappedFile file(folder / ("out/" + layer + ".DBF"));
        formats::DbfTable table(file.Bytes());
        std::string text;
        for (std::uint64_t row = 1; row <= table.RecordCount(); ++row) {
            text += row > 1 ? "; " : "";
            for (std::size_t i = 0; i < table.Fields().size(); ++i)
                text += (i > 0 ? "|" : "") + std::string(formats::DbfTable::Value(
                                                 table.Record(std::int64_t(row)), table.Fields()[i]));
        }
        return text;
    }
    std::string Cpg(const std::string& layer) const {
        return TempFolder::Read(folder / ("out/" + layer + ".CPG"));
    }

    TempFolder folder;
    test::TestUi ui;
    config::Session session{ui};
    Drawing imported;
};

TEST(ShapefileExport, KindsClosingAndAreas) {
    Office run;
    Drawing drawing;
    drawing.setActiveLayer("MIX");
    drawing.addPoint({1, 2, 3});
    drawing.addInsert({3, 4, 0}, "symbol", 1, 1, 0);
    drawing.addCircle({5, 5, 0}, 1);
    drawing.addText({5, 5, 0}, "no record", 1, 0);
    drawing.addPolyline(std::vector<Point>{{1, 1, 0}, {2, 2, 0}});
    drawing.addPolyline(std::vector<Point>{{1, 1, 0}, {2, 2, 0}, {3, 1, 0}}).setClosed(true);
    drawing.addPolyline(std::vector<Point>{{1, 1, 0}, {2, 2, 0}, {1, 1.0005, 0}}).setClosed(true);
    drawing.addPolyline(std::vector<Point>{{1, 1, 0}, {2, 2, 0}}).xproperties().add("Area", "12");
    drawing.addPolyline(std::vector<Point>{{9, 9, 0}});
    drawing.addPolyline();
    drawing.setActiveLayer("Frozen");
    drawing.addPoint({});
    drawing.findLayer("FROZEN")->frozen = true;
    drawing.addLayer("EMPTY");
    config::Outcome outcome = run.Export(drawing);
    EXPECT_EQ(
        run.Shapes("MIX"),
        "1 1,2; 1 3,4; 3 1,1 2,2; 5 1,1 2,2 3,1 1,1; 5 1,1 2,2 1,1; 5 1,1 2,2 1,1; 3 9,9 9,10 10,10; 3");
    EXPECT_EQ(run.Rows("MIX"), "1; 2; 5; 6; 7; 12; 9; A");  // handles where there are no attributes
    EXPECT_EQ(outcome.layers, 1U);
    EXPECT_EQ(outcome.features, 8U);
    EXPECT_EQ(platform::ListFiles(run.folder / "out"),
              (std::vector<std::string>{"MIX.CPG", "MIX.DBF", "MIX.PRJ", "MIX.SHP", "MIX.SHX"}));
    EXPECT_EQ(TempFolder::Read(run.folder / "ATP/MIX.ATP"), "[26,09]\r\n[01,01]HANDLE    ,C32.00\r\n");
}

TEST(ShapefileExport, ValuesStayInTheirFields) {
    Office run;
    run.folder.Write(
        "ATP/A.ATP",
        "[26,09]\r\n'comment, with, commas\r\n[01,01]NAME<SHORT>,C10.00\r\n[01,02]NULL,C05.00\r\n"
        "[01,03]A.B C,N06.2\r\n[01,04]WHEN,D\r\n[01,05]TEXT,X05.00=ON,OFF\r\n");
    run.folder.Write("gv.ini", "[CSV]\r\nSuppressNA=1\r\n");
    run.session.Settings().SHORTENFIELDSON = "-";
    Drawing drawing;
    drawing.setActiveLayer("A");
    auto add = [&](std::initializer_list<const char*> values) {
        Entity entity = drawing.addPoint({1, 1, 0});
        int i = 0;
        for (const char* value : values) entity.xproperties().add("F" + std::to_string(i++), value);
    };
    add({"Smith, J", "1.25", "20240305", "'quoted'", "beyond the last column"});
    add({"NA", "12345678", "5-3-2024", "AB-Tarmac"});
    add({"caf\xC3\xA9", "", "", ""});
    run.Export(drawing);
    EXPECT_EQ(run.Rows("A"), "Smith, J|1.25|20240305|quoted; |123456|5|AB; caf\xE9|||");
    EXPECT_EQ(run.Cpg("A"), "1252");
    EXPECT_EQ(run.session.Losses().Line(), "values cut: A.A_B C 1, A.F4 1");
    run.session.Settings().ReProcessFieldNames = true;
    run.Export(drawing);
    platform::MappedFile file(run.folder / "out/A.DBF");
    formats::DbfTable table(file.Bytes());
    EXPECT_EQ(table.Fields()[0].name, "SHORT");
    EXPECT_EQ(table.Fields()[1].name, "A_B_C");
    EXPECT_EQ(table.Fields()[3].width, 99U);
}

TEST(ShapefileExport, TextBeyondWindows1252MakesTheTableUtf8) {
    Office run;
    Drawing drawing;
    for (const char* layer : {"LATIN", "OTHER"}) {
        drawing.setActiveLayer(layer);
        drawing.addPoint({1, 1, 0}).xproperties().add("NAME", std::string(40, 'x') + "\xC3\xA9");
    }
    drawing.addPoint({1, 1, 0}).xproperties().add("NAME", "\xD0\x9A\xD0\xB8\xD1\x97\xD0\xB2 \xE2\x82\xAC");
    run.Export(drawing);
    EXPECT_EQ(run.Cpg("LATIN"), "1252");
    EXPECT_EQ(run.Cpg("OTHER"), "UTF-8");
    EXPECT_NE(run.Rows("OTHER").find("\xD0\x9A\xD0\xB8\xD1\x97\xD0\xB2 \xE2\x82\xAC"), std::string::npos);
}

TEST(ShapefileExport, LayersWhoseNamesAreNoFileNames) {
    Office run;
    Drawing drawing;
    for (const char* layer : {"../../escape", "A/B", "A_B", "A\\B"}) {
        drawing.setActiveLayer(layer);
        drawing.addPoint({1, 1, 0});
    }
    config::Outcome outcome = run.Export(drawing);
    EXPECT_EQ(outcome.layers, 4U);
    EXPECT_EQ(platform::ListFiles(run.folder / "out").size(), 20U);
    EXPECT_TRUE(platform::FileExists(run.folder / "out/A_B(2).SHP"));
}

TEST(ShapefileImport, WhatWasExportedComesBack) {
    Office run;
    Drawing drawing;
    drawing.setActiveLayer("LINES");
    Entity line = drawing.addPolyline(std::vector<Point>{{1.5, 2.25, 9}, {3, 4, 9}});
    line.xproperties().add("NAME", "Smith, J");
    line.xproperties().add("NOTE", " \xD0\x96 ");
    drawing.addPolyline(std::vector<Point>{{1, 1, 0}, {2, 2, 0}, {3, 1, 0}}).setClosed(true);
    run.Export(drawing);
    run.folder.Write("gv.ini", "[GENERICIN]\r\nGenATP=1\r\n");
    run.folder.Write("ATP/LINES.ATP", "");
    run.ui.answers = {true};
    config::Outcome outcome;
    Drawing& again = run.Import("out/lines.shp", &outcome);
    EXPECT_EQ(outcome.features, 2U);
    ASSERT_EQ(again.entityCount(), 2U);
    Entity first = again.entityAt(0), second = again.entityAt(1);
    EXPECT_EQ(first.layerName(), "LINES");
    EXPECT_EQ(first.vertex(0), (Point{1.5, 2.25, 0}));
    EXPECT_FALSE(first.isClosed());
    EXPECT_EQ(first.style().lineWeight, 30);
    EXPECT_EQ(first.style().colour, 2U);  // the second layer of the drawing
    EXPECT_EQ(first.xproperties().find("NAME")->value(), "Smith;; J");
    EXPECT_EQ(first.xproperties().find("NOTE")->value(), "\xD0\x96");
    EXPECT_TRUE(second.isClosed() && second.isFilled());
    EXPECT_EQ(second.vertexCount(), 4U);
    EXPECT_EQ(second.style().outlineColour, 7U);
    EXPECT_EQ(run.ui.questions, (std::vector<std::string>{"Generate ATP For LINES"}));
    EXPECT_EQ(TempFolder::Read(run.folder / "ATP/LINES.ATP"),
              "[26,09]\r\n[01,01]NAME        ,C32.00\r\n[01,02]NOTE        ,C32.00\r\n");
}

TEST(ShapefileImport, FeatureCodes) {
    const std::pair<const char*, const char*> cases[] = {
        {"C:\\d\\Water Mains 2009.shp", "2009"},
        {"/p/distribution_pipes_north.shp", "ON_PIPES_NORTH"},
        {"A B C.shp", "C"},
        {"abcdefghijklmnopq.shp", "DEFGHIJKLMNOPQ"},
        {"caf\xC3\xA9.shp", "CAF\xC3\x89"},
        {"\xC3\xA9"
         "23456789abcde.shp",
         "\xC3\x89"
         "23456789ABCDE"},
        {"ends in a blank .shp", "BLANK"},
    };
    for (auto [path, code] : cases) EXPECT_EQ(importer::frmFromSHP::mkCodeNameFromFile(path), code) << path;
}

TEST(ShapefileImport, OneDrawingOfSeveralFiles) {
    Office run;
    Drawing drawing;
    for (const char* layer : {"ONE", "TWO"}) {
        drawing.setActiveLayer(layer);
        drawing.addPoint({1000, 2000, 0}).xproperties().add("ID", layer);
    }
    run.Export(drawing);
    run.folder.Write("ATP/TWO.ATP", "'STYLE=x,HYDRANT,255,more\r\n");
    run.folder.Write("gv.ini", "[SHPin]\r\nUSFT=1\r\n");
    config::Outcome outcome;
    Drawing& both = run.Import("out/ONE.SHP|TWO.SHP|MISSING.SHP", &outcome);
    EXPECT_EQ(outcome.status, config::Outcome::Status::Failed);
    ASSERT_EQ(run.ui.messages.size(), 1U);
    EXPECT_TRUE(run.ui.messages[0].starts_with("Error Opening ")) << run.ui.messages[0];
    ASSERT_EQ(both.entityCount(), 2U);
    EXPECT_EQ(both.entityAt(1).kind(), "VDINSERT");
    EXPECT_EQ(both.entityAt(1).blockName(), "DEFAULT");
    EXPECT_EQ(both.entityAt(1).style().colour, 255U);
    EXPECT_EQ(both.entityAt(1).position(), (Point{304.8, 609.6, 0}));
    EXPECT_EQ(both.entityAt(1).shape().scaleX, 1);

    run.folder.Write("gv.ini", "[GENERAL]\r\nCUSTOMERMODE=CORVANTEX\r\n");
    Drawing& pipes = run.Import("out/ONE.SHP|TWO.SHP", &outcome);
    EXPECT_EQ(outcome.layers, 1U);
    EXPECT_EQ(pipes.entityAt(0).layerName(), "PIPES");
    EXPECT_EQ(pipes.entityAt(1).layerName(), "PIPES");
}

TEST(ShapefileImport, ADamagedFileLeavesTheOldDrawing) {
    Office run;
    Drawing drawing;
    drawing.addPolyline(std::vector<Point>{{1, 1, 0}, {2, 2, 0}});
    run.Export(drawing);
    std::string good = run.folder / "out/0.SHP", bytes = TempFolder::Read(good);
    run.folder.Write("0.VDF", "the old drawing");
    run.folder.Write("out/0.SHP", bytes.substr(0, bytes.size() - 1));
    try {
        run.Import("out/0.SHP");
        FAIL();
    } catch (const platform::ReadError& error) {
        EXPECT_STREQ(error.what(),
                     (good + ": byte 100, record 1: 2 points announced, 31 bytes left").c_str());
    }
    EXPECT_EQ(TempFolder::Read(run.folder / "0.VDF"), "the old drawing");
}

}  // namespace
}  // namespace vexlator
