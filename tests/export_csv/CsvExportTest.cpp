// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/frmCSV.h"
#include "support/ExportTest.h"

namespace vexlator::exporter {
namespace {

using Files = std::vector<std::string>;

class CsvExport : public test::ExportTest {
protected:
    /// The exported file of a drawing with these lines in section CSV.
    std::string Csv(const std::string& settings = "", const std::string& others = "") {
        Ini("[CSV]\r\n" + settings + "\r\n" + others);
        Export<frmCSV>(0);
        return Out("Survey.CSV");
    }
    /// The only value of a point, in a file without header and coordinates.
    std::string Value(const std::string& value, const std::string& settings, const std::string& others = "") {
        drawing.clear();
        Give(On("CODE").addPoint({}), {{"A", value}});
        std::string row = Csv("header=0\r\nCoords=0\r\n" + settings, others);
        std::string before = "Point?CODE?";
        EXPECT_GT(row.size(), before.size());
        return row.substr(before.size(), row.size() - before.size() - 2);
    }
    void MakeSurvey() {
        Give(On("TREE").addPoint({400000.12345, 300000.5, 12.5}), {{"NAME", "oak"}});
        Give(drawing.addInsert({1, 2, 0}, "S", 1, 1, 0), {{"NAME", "a,b"}, {"PHOTO", "NA"}});
        drawing.addText({}, "t", 1, 0);
        std::vector<drawing::Point> line{{0, 0, 1}, {10.0006, 0, 2}, {10, 20, 0}};
        Give(On("FENCE").addPolyline(line), {{"KIND", "x"}});
        drawing.addPolyline();
        drawing.addCircle({}, 1);
    }
};

TEST_F(CsvExport, EverySettingOfTheLayout) {
    MakeSurvey();
    drawing.findLayer("FENCE")->frozen = true;
    struct Case {
        std::string settings, written;
    };
    const Case cases[] = {
        {"DP=1\r\nheader=0",
         "Point,TREE,400000.1 300000.5 12.500,oak\r\nPoint,TREE,1.0 2.0 0.000,a,b,NA\r\n"},
        {"DP=0\r\nheader=0", "Point,TREE,400000 300001 12.500,oak\r\nPoint,TREE,1 2 0.000,a,b,NA\r\n"},
        {"DP=99\r\nheader=0\r\nSuppressNA=1",
         "Point,TREE,400000.123450000000000 300000.500000000000000 12.500,oak\r\n"
         "Point,TREE,1.000000000000000 2.000000000000000 0.000,a,b,\r\n"},
        {"Coords=0\r\nSeparator=TAB",
         "Geometry\tFeature\tNAME\tPHOTO\t\r\nPoint\tTREE\toak\r\nPoint\tTREE\ta\tb\tNA\r\n"},
        {"Coords=0\r\nMultiXYZ=1",
         "Geometry,Feature,NAME,PHOTO,X,Y,Z\r\nPoint,TREE,oak,400000.123,300000.500,12.500,\r\n"
         "Point,TREE,a,b,NA,1.000,2.000,0.000,\r\n"},
        {"Separator=TAB\r\nMultiXYZ=1\r\nheader=0",
         "Point\tTREE\t400000.123 300000.500 12.500\toak\t400000.123\t300000.500\t12.500\t\r\n"
         "Point\tTREE\t1.000 2.000 0.000\ta\tb\tNA\t1.000\t2.000\t0.000\t\r\n"},
        {"Coords=0\r\nQuote=1",
         "Geometry,Feature,NAME,PHOTO,\r\nPoint,TREE,oak\r\nPoint,TREE,\"a,b\",NA\r\n"}};
    for (const Case& c : cases) EXPECT_EQ(Csv(c.settings), c.written) << c.settings;
}

TEST_F(CsvExport, AscIsTabbedWithoutCoordinatesWhateverTheSettings) {
    MakeSurvey();
    Ini("[CSV]\r\nSepFiles=1\r\nheader=0\r\nMultiXYZ=1\r\nSuppressNA=1\r\nQuote=1\r\nBOM=1\r\n");
    Export<frmCSV>(1);
    EXPECT_EQ(Out("Survey.ASC"),
              "Geometry\tFeature\tNAME\tPHOTO\t\r\nPoint\tTREE\toak\r\nPoint\tTREE\ta\tb\tNA\r\n\r\n"
              "Geometry\tFeature\tKIND\t\r\nPolyline\tFENCE\tx\r\nPolyline\tFENCE\t\r\n");
    EXPECT_EQ(OutFiles(), Files{"Survey.ASC"});
}

TEST_F(CsvExport, FilesPerLayerReplaceTheFileOfTheDrawing) {
    MakeSurvey();
    folder.Write("out/Survey.CSV", "old");
    Csv("SepFiles=1\r\nCoords=0");
    EXPECT_EQ(OutFiles(), (Files{"FENCE.CSV", "TREE.CSV"}));
    EXPECT_EQ(Out("FENCE.CSV"), "Geometry,Feature,KIND,\r\nPolyline,FENCE,x\r\nPolyline,FENCE,\r\n");
    Give(On("SURVEY").addPoint({}), {{"A", "new"}});
    Csv("SepFiles=1");
    EXPECT_EQ(OutFiles(), (Files{"FENCE.CSV", "SURVEY.CSV", "TREE.CSV"}));
    drawing.clear();
    Csv();
    EXPECT_EQ(OutFiles(), (Files{"FENCE.CSV", "TREE.CSV"})) << "nothing to export: the old file goes";
}

TEST_F(CsvExport, HostileValues) {
    const std::string links = "[PHOTO]\r\nExportAsHyperlinks=x\r\n", safe = "SafeFormulas=1\r\n";
    const std::string large(1 << 21, 'x');
    const struct {
        std::string value, settings, others, written;
    } cases[] = {{"say \"hi\"\r\n", "", "", "say \"hi\"\r\n"},
                 {"=1+1", "", "", "=1+1"},
                 {"tab\there", "Quote=1", "", "tab\there"},
                 {"tab\there, x", "Quote=1\r\nSeparator=TAB", "", "\"tab\there, x\""},
                 {large + ",", "Separator=TAB", "", large + "\t"},
                 {"=1+1", safe, "", "'=1+1"},
                 {"+44 161", safe, "", "'+44 161"},
                 {"@SUM(A1)", safe, "", "'@SUM(A1)"},
                 {"-12.50", safe, "", "-12.50"},
                 {"-1+cmd|' /C calc'!A0", safe, "", "'-1+cmd|' /C calc'!A0"},
                 {"a,=b", safe, "", "a,'=b"},
                 {"a\n=b", safe, "", "a\n'=b"},
                 {"a\t=b", safe + "Separator=TAB", "", "a\t'=b"},
                 {"a,=b", safe + "Quote=1", "", "\"a,=b\""},
                 {"=\"a\"", safe + "Quote=1", "", "\"'=\"\"a\"\"\""},
                 {"sub\\a.jpg", "", links, "=hyperlink(\"sub\\a.jpg\")"},
                 {"a.bmp", "", links, "a.bmp"},
                 {"a.jpg\")+cmd(\"", safe, links, "=hyperlink(\"a.jpg\"\")+cmd(\"\"\")"},
                 {"a.JPG", "Quote=1", links, "\"=hyperlink(\"\"a.JPG\"\")\""}};
    for (const auto& c : cases) EXPECT_EQ(Value(c.value, c.settings, c.others), c.written);
}

TEST_F(CsvExport, PointsInLatitudeAndLongitude) {
    std::string definition = folder.Write("grid.txt", "EPSG:32630");
    Give(On("CODE").addPoint({500000, 5000000, 7}), {{"A", "1"}});
    drawing.addPoint({1e300, 0, 0});
    std::vector<drawing::Point> line{{500000, 5000000, 0}};
    drawing.addPolyline(line);
    std::string others = "[GPS]\r\nTRANSFORMATION=" + definition + "\r\n";
    std::string huge = "1" + std::string(300, '0');
    EXPECT_EQ(Csv("DP=0\r\nLatLng=1\r\nCoords=0\r\nMultiXYZ=1", others),
              "Geometry,Feature,A,Latitude,Longitude,Level\r\n"
              "Point,CODE,1,45.153477,-3.000000,7.000,\r\n"
              "Point,CODE,," +
                  huge +
                  ",0,0.000,\r\n"
                  "Polyline,CODE,,500000,5000000,0.000:,\r\n");
    ASSERT_EQ(ui.reports.size(), 1U);
    EXPECT_TRUE(ui.reports[0].starts_with("CODE: 1 point outside")) << ui.reports[0];

    definition = folder.Write("LatLng.txt", "x");
    drawing.addPoint({-3, 45, 7});
    EXPECT_NE(Csv("LatLng=1\r\nheader=0", "[GPS]\r\nTRANSFORMATION=" + definition + "\r\n")
                  .find("\r\nPoint,CODE,45.000000 -3.000000 7.000"),
              std::string::npos);
}

}  // namespace
}  // namespace vexlator::exporter
