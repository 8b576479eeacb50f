// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/mif/MifLayer.h"
#include "export/mif/frmMID.h"
#include "support/ExportTest.h"

namespace vexlator::exporter {
namespace {

using test::Attributes;

class MifExport : public test::ExportTest {
protected:
    std::string Row(const Attributes& attributes) {
        drawing.clear();
        Give(On("CODE").addPoint({}), attributes);
        Export<frmMID>();
        return Out("CODE.MID");
    }
};

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
    EXPECT_EQ(Out("CODE.MIF"), "Version 450\r\nCharset \"UTF-8\"\r\nDelimiter \",\"\r\nIndex 1\r\n" +
                                   nonEarth +
                                   "Columns 1\r\n  \xD0\x96 Char(10)\r\nData\r\n\r\nPoint 0.000 0.000\r\n"
                                   "    Symbol (35,255,12)\r\n");
}

}  // namespace
}  // namespace vexlator::exporter
