// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/shapefile/frmSHP.h"
#include "formats/dbf/DbfTable.h"
#include "formats/shapefile/ShapefileReader.h"
#include "import/shapefile/frmFromSHP.h"
#include "platform/Files.h"
#include "support/Errors.h"
#include "support/ImportOffice.h"

#include <gtest/gtest.h>

namespace vexlator {
namespace {

using drawing::Drawing;
using drawing::Entity;
using drawing::Point;
using test::TempFolder;
using util::PlanePoint;

struct Office : test::ImportOffice<importer::frmFromSHP> {
    Office() {
        folder.Write("Resources/ESRI.PRJ", "PROJCS[...]");
        std::filesystem::create_directories(folder / "out");
    }
    config::Outcome Export(Drawing& source) {
        source.saveAs(folder / "a.VDF");
        return exporter::frmSHP(run).Start(folder / "a.VDF", folder / "out");
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
};

TEST(ShapefileExport, KindsClosingAndAreas) {
    Office office;
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
    config::Outcome outcome = office.Export(drawing);
    EXPECT_EQ(
        office.Shapes("MIX"),
        "1 1,2; 1 3,4; 3 1,1 2,2; 5 1,1 2,2 3,1 1,1; 5 1,1 2,2 1,1; 5 1,1 2,2 1,1; 3 9,9 9,10 10,10; 3");
    EXPECT_EQ(office.Rows("MIX"), "1; 2; 5; 6; 7; 12; 9; A");  // handles where there are no attributes
    EXPECT_EQ(outcome.layers, 1U);
    EXPECT_EQ(outcome.features, 8U);
    EXPECT_EQ(platform::ListFiles(office.folder / "out"),
              (std::vector<std::string>{"MIX.CPG", "MIX.DBF", "MIX.PRJ", "MIX.SHP", "MIX.SHX"}));
    EXPECT_EQ(TempFolder::Read(office.folder / "ATP/MIX.ATP"), "[26,09]\r\n[01,01]HANDLE    ,C32.00\r\n");
}

TEST(ShapefileImport, ShapesLookAsTheirCodeSays) {
    Office office;
    Drawing drawing;
    drawing.setActiveLayer("LINES");
    drawing.addPolyline(std::vector<Point>{{1.5, 2.25, 9}, {3, 4, 9}});
    drawing.addPolyline(std::vector<Point>{{1, 1, 0}, {2, 2, 0}, {3, 1, 0}}).setClosed(true);
    drawing.setActiveLayer("POINTS");
    drawing.addPoint({1000, 2000, 0});
    office.Export(drawing);
    office.folder.Write("ATP/POINTS.ATP", "'STYLE=x,HYDRANT,255,more\r\n");
    office.Import("out/lines.shp|POINTS.SHP");
    ASSERT_EQ(office.drawing.entityCount(), 3U);
    Entity line = office.drawing.entityAt(0), area = office.drawing.entityAt(1),
           point = office.drawing.entityAt(2);
    EXPECT_FALSE(line.isClosed());
    EXPECT_EQ(line.style().lineWeight, 30);
    EXPECT_EQ(line.style().colour, 2U);  // the second layer of the drawing
    EXPECT_TRUE(area.isClosed() && area.isFilled());
    EXPECT_EQ(area.style().outlineColour, 7U);
    EXPECT_EQ(point.blockName(), "DEFAULT");
    EXPECT_EQ(point.style().colour, 255U);
    EXPECT_EQ(point.shape().scaleX, 1);
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

TEST(ShapefileImport, ADamagedFileLeavesTheOldDrawing) {
    Office office;
    Drawing drawing;
    drawing.addPolyline(std::vector<Point>{{1, 1, 0}, {2, 2, 0}});
    office.Export(drawing);
    std::string good = office.folder / "out/0.SHP", bytes = TempFolder::Read(good);
    office.folder.Write("0.VDF", "the old drawing");
    office.folder.Write("out/0.SHP", bytes.substr(0, bytes.size() - 1));
    EXPECT_EQ(test::ErrorOf([&] { office.Import("out/0.SHP"); }),
              good + ": byte 100, record 1: 2 points announced, 31 bytes left");
    EXPECT_EQ(TempFolder::Read(office.folder / "0.VDF"), "the old drawing");
}

}  // namespace
}  // namespace vexlator
