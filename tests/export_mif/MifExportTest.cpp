// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/mif/MifLayer.h"
#include "export/mif/frmMID.h"
#include "support/ExportTest.h"

namespace vexlator::exporter {
namespace {

using test::Attributes;
using Files = std::vector<std::string>;

const std::string nationalGrid =
    "CoordSys Earth Projection 8, 79, \"m\", -2, 49, 0.9996012717, 400000, -100000 Bounds (-7845061.1011, "
    "-15524202.1641) (8645061.1011, 4470074.53373)\r\n";

class MifExport : public test::ExportTest {
protected:
    static std::string Header(const std::string& columns, const std::string& charset = "WindowsLatin1",
                              const std::string& coordSys = nationalGrid) {
        return "Version 450\r\nCharset \"" + charset + "\"\r\nDelimiter \",\"\r\nIndex 1\r\n" + coordSys +
               columns + "Data\r\n\r\n";
    }
    std::string Row(const Attributes& attributes) {
        drawing.clear();
        Give(On("CODE").addPoint({}), attributes);
        Export<frmMID>();
        return Out("CODE.MID");
    }
};

TEST_F(MifExport, WritesEveryKindOfObject) {
    Template("FENCE", "[01,01]NAME,C32.00\r\n[01,02]DEPTH<DPTH>,N10.02\r\n[01,03]NULL,C10.00\r\n");
    On("FENCE");
    Give(drawing.addPoint({1, 2, 3}), {{"NAME", "a"}, {"DEPTH", "007.50"}});
    Give(drawing.addInsert({-0.0004, 1.0005, 0}, "S", 1, 1, 0), {{"NAME", "b"}, {"DEPTH", "NA"}});
    Give(drawing.addCircle({1e6, 2e6, 0}, 5), {{"NAME", "c"}, {"DEPTH", ""}});
    std::vector<drawing::Point> corners{{0, 0, 9}, {1.23456, 0, 9}, {1, 1, 9}};
    Give(drawing.addPolyline(corners), {{"NAME", "d"}, {"DEPTH", "1"}});
    drawing::Entity area = drawing.addPolyline(corners);
    area.setClosed(true);
    Give(area, {{"NAME", "e"}, {"DEPTH", "2"}});
    for (drawing::Entity entity :
         {drawing.addText({}, "t", 1, 0), drawing.addLine({}, {1, 1, 0}), drawing.addArc({}, 1, 0, 1)})
        Give(entity, {{"NAME", "x"}, {"DEPTH", "y"}});

    config::Outcome outcome = Export<frmMID>();
    EXPECT_EQ(outcome.features, 5U);
    EXPECT_EQ(outcome.layers, 1U);
    EXPECT_EQ(Out("FENCE.MIF"), Header("Columns 2\r\n  NAME Char(32)\r\n  DEPTH Decimal(10,02)\r\n") +
                                    "Point 1.000 2.000\r\n    Symbol (35,255,12)\r\n"
                                    "Point 0.000 1.001\r\n    Symbol (35,255,12)\r\n"
                                    "Point 1000000.000 2000000.000\r\n    Symbol (35,255,12)\r\n"
                                    "Pline 3\r\n0.000 0.000\r\n1.235 0.000\r\n1.000 1.000\r\n"
                                    "    Pen (1,2,12550144)\r\n"
                                    "Region 1\r\n  3\r\n0.000 0.000\r\n1.235 0.000\r\n1.000 1.000\r\n"
                                    "    Pen(1, 1, 16576)\r\n    Brush (2,8388607,16777215)\r\n");
    EXPECT_EQ(Out("FENCE.MID"), "a,007.50\r\nb,NA\r\nc,\r\nd,1\r\ne,2\r\n");
    EXPECT_EQ(ui.labels, (Files{"FENCE", "Completed!"}));
}

TEST_F(MifExport, ColumnTypesFollowTheTemplate) {
    struct Case {
        char type;
        std::string width, decimals, written;
    };
    const Case cases[] = {{'C', "32", "00", "Char(32)"}, {'X', "05", "00", "Char(05)"},
                          {'C', "", "", "Char(254)"},    {'C', "00", "00", "Char(254)"},
                          {'N', "10", "00", "Integer"},  {'N', "10", "", "Integer"},
                          {'N', "", "", "Float"},        {'N', "", "02", "Decimal(15,02)"},
                          {'F', "10", "02", "Float"},    {'N', "10", "02", "Decimal(10,02)"},
                          {'D', "", "00", "Date"},       {'D', "08", "", "Decimal(08,0)"}};
    for (const Case& c : cases) {
        drawing::AtpField field{"A", "", c.type, c.width, c.decimals};
        EXPECT_EQ(MifColumnType(field), c.written);
    }
}

TEST_F(MifExport, ColumnsComeFromTheTemplateAListOfNamesOrTheFirstEntity) {
    auto columns = [&] {
        Export<frmMID>();
        std::string text = Out("CODE.MIF");
        return text.substr(text.find("Columns"), text.find("Data") - text.find("Columns"));
    };
    Give(On("CODE").addPoint({}), {{"A", "1"}, {"B C", "2"}});
    EXPECT_EQ(columns(), "Columns 2\r\n  A Char(32)\r\n  B_C Char(32)\r\n");
    Template("CODE", "");
    EXPECT_EQ(columns(), "Columns 1\r\n  ID Char(10)\r\n");
    EXPECT_EQ(Out("CODE.MID"), "1,2\r\n");
    folder.Write("ATP/CODE.XOT", "FIRST,x\r\nSECOND\r\nTHIRD\r\n");
    EXPECT_EQ(columns(), "Columns 3\r\n  FIRST Char(20)\r\n  SECOND Char(20)\r\n  THIRD Char(20)\r\n");
    std::string lines;
    for (int i = 0; i < 123; ++i) lines += "[01,01]F" + std::to_string(i) + ",C05.00\r\n";
    std::filesystem::remove(folder / "ATP/CODE.XOT");
    Template("CODE", lines);
    EXPECT_TRUE(columns().starts_with("Columns 123\r\n  F0 Char(05)\r\n"));
}

TEST_F(MifExport, ValuesAreQuotedOnlyWhereAReaderWouldGoWrong) {
    EXPECT_EQ(Row({{"A", "plain text"}, {"B", " x;y\tz'\\ "}, {"C", "=1+1"}, {"D", "a,b"}}),
              "plain text, x;y\tz'\\ ,=1+1,\"a,b\"\r\n");
    std::string large(1 << 21, 'x');
    EXPECT_EQ(Row({{"A", large}, {"B", large + "\""}}), large + ",\"" + large + "\"\"\"\r\n");
}

TEST_F(MifExport, TheCharsetLineTellsTheTruth) {
    EXPECT_EQ(Row({{"A", "caf\xC3\xA9 \xE2\x82\xAC"}}), "caf\xE9 \x80\r\n");
    EXPECT_NE(Out("CODE.MIF").find("Charset \"WindowsLatin1\""), std::string::npos);
    EXPECT_EQ(Row({{"A", "caf\xC3\xA9 \xD0\x96"}}), "caf\xC3\xA9 \xD0\x96\r\n");
    EXPECT_NE(Out("CODE.MIF").find("Charset \"UTF-8\""), std::string::npos);
    EXPECT_TRUE(run.Losses().Empty());
    Template("CODE", "[01,01]\xD0\x96,C10.00\r\n");
    const std::string nonEarth = "CoordSys NonEarth Units \"m\" Bounds (0, 0) (1, 1)\r\n";
    Ini("[MID]\r\nMIDMIFHEADER=" + nonEarth);
    EXPECT_EQ(Row({{"A", "caf\xC3\xA9"}}), "caf\xC3\xA9\r\n");
    EXPECT_EQ(Out("CODE.MIF"), Header("Columns 1\r\n  \xD0\x96 Char(10)\r\n", "UTF-8", nonEarth) +
                                   "Point 0.000 0.000\r\n    Symbol (35,255,12)\r\n");
}

}  // namespace
}  // namespace vexlator::exporter
