// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Run.h"
#include "drawing/Drawing.h"
#include "import/RowReader.h"
#include "import/mif/MifHeader.h"
#include "import/mif/frmFromMID.h"
#include "support/ImportOffice.h"

#include <cmath>
#include <gtest/gtest.h>

namespace vexlator {
namespace {

using Messages = std::vector<std::string>;
using config::Outcome;
using drawing::Entity;

struct Office : test::ImportOffice<importer::frmFromMID> {
    /// Imports one file of these objects, with the columns A and B.
    std::string Objects(const std::string& objects, const std::string& mid, const std::string& header = "") {
        folder.Write("CODE.MIF",
                     "Version 300\n" + header + "Columns 2\n  A Char(10)\n  B Integer\nData\n\n" + objects);
        folder.Write("CODE.MID", mid);
        return Import("CODE.MID");
    }
    Entity At(std::size_t index) { return drawing.entityAt(index); }
};

TEST(MifImport, ObjectsBecomeEntities) {
    Office run;
    EXPECT_EQ(run.Objects("Point 1.5 -2\n    Symbol (35,0,12)\n"
                          "Line 1 2 3 4\n    Pen (1,2,0)\n"
                          "Pline 3\n0 0\n10 0\n 10  -10\n    Pen (1,2,0)\n    Smooth\n"
                          "PLINE\n 2 \n5 5\n6 6\n"
                          "none\n"
                          "Ellipse 0 0 6 8\n",
                          "\"a, 1\",1\nb,2\nc,3\nd,4\nskipped,5\ne,6\n"),
              "CODE VDINSERT 1.5,-2 | A=a/ 1 | B=1\n"
              "CODE VDPOLYLINE 1,2 3,4 | A=b | B=2\n"
              "CODE VDPOLYLINE 0,0 10,0 10,-10 | A=c | B=3\n"
              "CODE VDPOLYLINE 5,5 6,6 | A=d | B=4\n"
              // A hexagon at the length of the diagonal.
              "CODE VDPOLYLINE 3,14 11.6602540378,9 11.6602540378,-1 3,-6 "
              "-5.66025403784,-1 -5.66025403784,9 3,14 | A=e | B=6\n");
    EXPECT_EQ(run.ui.messages, Messages{});
    EXPECT_EQ(run.At(0).blockName(), "default");
    EXPECT_EQ(run.At(0).style().colour, 2U);  // the drawing's second layer
    EXPECT_EQ(run.At(0).style().lineWeight, 0);
    EXPECT_EQ(run.At(1).style().lineWeight, 30);
    EXPECT_FALSE(run.At(2).isClosed() || run.At(2).isFilled());
    EXPECT_EQ(run.outcome.features, 5U);
    EXPECT_EQ(run.outcome.layers, 1U);
    EXPECT_EQ(run.outcome.status, Outcome::Status::Done);
    EXPECT_EQ(run.ui.labels, (Messages{"CODE", "M:0  N:1", "Completed!"}));
}

TEST(MifImport, SectionsAndRingsBecomeOnePolyline) {
    Office run;
    EXPECT_EQ(
        run.Objects("Pline Multiple 2\n  3\n0 0\n100 0\n100 1\n  4\n200 0\n201 0\n202 0\n203 0\n"
                    "Region  3\n  4\n0 0\n0 9\n9 9\n9 0\n  3\n1 1\n2 1\n2 2\n  2\n5 5\n6 6\n    Pen (1,2,0)\n"
                    "    Brush (2,3)\n    Center 3 3\n"
                    "Region 0\n 1\n7 7\n",
                    ""),
        "CODE VDPOLYLINE 0,0 100,0 100,1 200,0 201,0 202,0 203,0 | A= | B=\n"
        "CODE VDPOLYLINE 0,0 0,9 9,9 9,0 0,0 1,1 2,1 2,2 1,1 9,0 5,5 6,6 5,5 9,0 | A= | B=\n"
        "CODE VDPOLYLINE 7,7 7,7 | A= | B=\n");
    EXPECT_EQ(run.ui.labels[1], "M:1  N:0");
    EXPECT_TRUE(run.At(1).isFilled());
    EXPECT_FALSE(run.At(1).isClosed());
    EXPECT_EQ(run.At(1).style().fillColour, 2U);
    EXPECT_EQ(run.At(1).style().outlineColour, 7U);
}

TEST(MifImport, TextsLastToTheNextEmptyLine) {
    Office run;
    run.Objects(
        "Text\n    \"High, Street\"\n    100 200 110 205\n    Font (\"Arial\",0,0,0)\n    Angle 90\n"
        "Point 1 1\n\nText \"b\"\n 0 0 3 4\n\nPoint 2 2\n",
        "a,1\nb,2\nc,3\n");
    ASSERT_EQ(run.drawing.entityCount(), 3U);
    Entity text = run.At(0);
    EXPECT_EQ(text.text(), "High, Street");
    EXPECT_EQ(text.insertionPoint(), (drawing::Point{100, 200, 0}));
    EXPECT_NEAR(text.height(), 11.180340, 1e-6);
    EXPECT_NEAR(text.rotation(), std::acos(0), 1e-9);
    EXPECT_EQ(text.shape().alignment, 24);
    EXPECT_EQ(text.xproperties().item(0).value(), "a");
    EXPECT_EQ(run.At(1).text(), "b");
    EXPECT_EQ(run.At(1).height(), 5);
    EXPECT_EQ(run.At(2).xproperties().item(0).value(), "c");
}

TEST(MifImport, ExtendedTakesMoreKindsOfObjects) {
    Office run;
    run.Ini("[MIDIN]\nExtended=1\n");
    std::string text = run.Objects(
        "Arc 0 0 20 10\n0 90\n    Pen (1,2,0)\n"
        "Rect 0 0 4 2\n"
        "Roundrect 0 0 40 20 8\n"
        "Multipoint 2\n1 2\n3 4\n    Symbol (35,0,12)\n"
        "Collection 2\nPline 2\n1 1\n2 2\nMultipoint 1\n9 9\n"
        "Text\n\"t\"\n0 0 3 4\nPoint 5 5\n",
        "a,1\nb,2\nc,3\nd,4\ne,5\nf,6\ng,7\n");
    EXPECT_EQ(run.ui.messages, Messages{});
    ASSERT_EQ(run.drawing.entityCount(), 9U) << text;
    Entity arc = run.At(0), rounded = run.At(2);
    EXPECT_EQ(arc.vertexCount(), 46U);
    EXPECT_EQ(arc.vertex(0), (drawing::Point{20, 5, 0}));
    EXPECT_NEAR(drawing::distance(arc.vertex(45), {10, 10, 0}), 0, 1e-9);
    EXPECT_NEAR(drawing::distance(rounded.vertex(0), {0, 4, 0}), 0, 1e-9);
    EXPECT_NEAR(drawing::distance(rounded.vertex(45), {4, 0, 0}), 0, 1e-9);
    EXPECT_EQ(rounded.vertex(0), rounded.vertex(rounded.vertexCount() - 1));
    EXPECT_TRUE(rounded.isFilled());
    EXPECT_NE(text.find("VDPOLYLINE 0,0 4,0 4,2 0,2 0,0 | A=b | B=2\n"), std::string::npos);
    EXPECT_NE(text.find("CODE VDINSERT 1,2 | A=d | B=4\nCODE VDINSERT 3,4 | A=d | B=4\n"
                        "CODE VDPOLYLINE 1,1 2,2 | A=e | B=5\nCODE VDINSERT 9,9 | A=e | B=5\n"
                        "CODE VDTEXT 0,0 | A=f | B=6\nCODE VDINSERT 5,5 | A=g | B=7\n"),
              std::string::npos)
        << text;
}

/// Long enough a row to end a chunk of the drawing's file.
TEST(MifImport, PartsOfACollectionShareALongRow) {
    Office run;
    run.Ini("[MIDIN]\nExtended=1\n");
    std::string row = std::string(3 << 20, 'x');
    run.Objects(
        "Point 0 0\nCollection 3\nPline 2\n1 1\n2 2\nMultipoint 1\n9 9\nPline 2\n1 1\n2 2\nPoint 1 1\n",
        "a,1\n" + row + ",2\nb,3\n");
    ASSERT_EQ(run.drawing.entityCount(), 5U);
    for (std::size_t i = 1; i < 4; ++i) EXPECT_EQ(run.At(i).xproperties().item(0).value(), row);
    EXPECT_EQ(run.At(4).xproperties().item(0).value(), "b");
}

TEST(MifImport, RowsAreReadByTheDelimiter) {
    struct Case {
        const char *delimiter, *row, *a, *b;
    };
    const Case cases[] = {
        {",", "\"x, y\",\"5\"\" pipe\"", "x/ y", "5 pipe"},
        {";", "\"a;b\";c,d", "a;b", "c/d"},
        {"\t", "a\tb\tbeyond", "a", "b"},
        {",", "\"two \"\"\r\nlines\",5", "two \r\nlines", "5"},
        {",", "\"open\nx\"y,2", "open", ""},
        {",", "5\",\"\"\n\"", "5/", ""},
        {"\"", "a\"b", "a", "b"},
        {"/", "a,b", "a", "b"},
        {nullptr, "a\t\"x\ty\"", "a", "x;y"},
        {nullptr, "Smith, J\tb", "Smith/ J", "b"},
        {nullptr, "\"a\tb\",c", "a\tb", "c"},
    };
    for (const Case& c : cases) {
        Office run;
        run.Objects(
            "Point 1 1\n", std::string(c.row) + "\n",
            c.delimiter ? "Charset \"Neutral\"\ndelimiter \"" + std::string(c.delimiter) + "\"\n" : "");
        EXPECT_EQ(run.At(0).xproperties().item(0).value(), c.a) << c.row;
        EXPECT_EQ(run.At(0).xproperties().item(1).value(), c.b) << c.row;
        EXPECT_EQ(run.At(0).xproperties().count(), 2U);
    }
}

TEST(MifImport, TheCharacterSetIsHonoured) {
    struct Case {
        const char *charset, *bytes, *text;
    };
    const Case cases[] = {
        {"WindowsLatin1", "caf\xE9 \x80", "caf\xC3\xA9 \xE2\x82\xAC"},
        {"WindowsLatin1", "caf\xC3\xA9", "caf\xC3\x83\xC2\xA9"},
        {"Neutral", "caf\xC3\xA9", "caf\xC3\xA9"},
        {"PackedEUCJapaese", "\xA5\xBD", "\xE3\x82\xBD"},
        {"ISO8859_7", "\xE1", "\xCE\xB1"},
        {"nonsense", "caf\xE9", "caf\xC3\xA9"},
    };
    for (const Case& c : cases) {
        Office run;
        std::string bytes = c.bytes;
        run.folder.Write("C.MIF", "Charset \"" + std::string(c.charset) + "\"\nColumns 1\n  " + bytes +
                                      " Char(5)\nData\nText\n\"" + bytes + "\"\n1 1 2 2\n");
        run.folder.Write("C.MID", "\"" + bytes + "\"\n");
        run.Import("C.MIF");
        EXPECT_EQ(run.At(0).text(), c.text) << c.charset;
        EXPECT_EQ(run.At(0).xproperties().item(0).value(), c.text) << c.charset;
        EXPECT_EQ(run.At(0).xproperties().name(0),
                  std::string(c.text).substr(0, std::string(c.text).find(' ')));
        EXPECT_EQ(run.ui.reports.size(), std::string(c.charset) == "nonsense" ? 1U : 0U);
    }
}

TEST(MifImport, LineEndsAndMarksDoNotCount) {
    std::string objects = "Pline 2\n1 2\n3 4\nPoint 5 6", mid = "a,1\nb,2\n\n\x1A";
    auto with = [](std::string text, std::string_view end) {
        for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += end.size())
            text.replace(at, 1, end);
        return text;
    };
    Office plain;
    std::string wanted = plain.Objects(objects, mid);
    for (std::string_view end : {"\r\n", "\r"}) {
        Office run;
        run.folder.Write("CODE.MIF",
                         "\xEF\xBB\xBF" + with("Columns 2\n A Char\n B Char\nData\n" + objects, end));
        run.folder.Write("CODE.MID", with(mid, end));
        EXPECT_EQ(run.Import("CODE.MID"), wanted);
        EXPECT_EQ(run.ui.messages, Messages{});
    }
}

TEST(MifImport, TemplatesTakeWidthsFromColumns) {
    Office run;
    run.Ini("[GENERICIN]\nGenATP=1\n");
    run.ui.answers = {true};
    run.folder.Write("Water main.mif",
                     "Columns 6\n \"NAME\" Char(30)\n C1 char\n N1 Smallint\n"
                     " N2 Decimal(12,3)\n N3 Integer\n L Logical\nData\nPoint 1 1\n");
    run.folder.Write("Water main.mid", "");
    run.folder.Write("ATP/B.ATP", "'STYLE=0,,255\n");
    run.folder.Write("B.MIF", "Columns 0\nData\nRegion 1\n1\n1 1\n");
    run.folder.Write("B.MID", "");
    EXPECT_EQ(run.Import("Water main.MID|B.MID"),
              "WATER MAIN VDINSERT 1,1 | NAME= | C1= | N1= | N2= | N3= | L=\nB VDPOLYLINE 1,1 1,1\n");
    EXPECT_EQ(run.ui.questions, Messages{"Generate ATP For WATER MAIN"});
    EXPECT_EQ(test::TempFolder::Read(run.folder / "ATP/WATER MAIN.ATP"),
              "[26,09]\r\n[01,01]NAME        ,C30.00\r\n[01,02]C1          ,C64.00\r\n"
              "[01,03]N1          ,C06.00\r\n[01,04]N2          ,C12.00\r\n[01,05]N3          ,C10.00\r\n"
              "[01,06]L           ,C64.00\r\n");
    EXPECT_EQ(run.At(1).style().colour, 255U);
    EXPECT_EQ(run.At(1).style().fillColour, 255U);
}

TEST(MifImport, CountsOfDamagedFilesAreNotBelieved) {
    for (const char* objects : {"Pline Multiple 999999999999\n", "Region 9223372036854775807\n 4\n1 1\n",
                                "Pline 4000000000\n1 1\n", "Text\n", "Text \"", "Region"}) {
        Office run;
        run.Objects(objects, "");
        EXPECT_LE(run.drawing.entityCount(), 1U) << objects;
    }
    Office run;
    run.folder.Write("C.MIF", "Columns 2147483647\n A Char\n");
    run.folder.Write("C.MID", "");
    EXPECT_EQ(run.Import("C.MID"), "");
    std::string wide = "Columns 10000\n", mid;
    for (int i = 0; i < 10000; ++i) wide += "a\n";
    wide += "Data\n";
    for (int i = 0; i < 10000; ++i) wide += "Point 1 1\n", mid += "\n";
    run.folder.Write("C.MIF", wide);
    run.folder.Write("C.MID", mid);
    EXPECT_THROW(run.Import("C.MID"), platform::ReadError);
}

TEST(MifImport, RowsOfStrayQuotesCostWhatTheyHold) {
    for (std::string line : {"a\",x,\"\n", "\",a\",\"\n"}) {  // ends inside quotes, wherever it begins
        std::string text;
        for (int i = 0; i < 1000000; ++i) text += line;
        importer::RowReader rows(text, ",");
        while (!rows.AtEnd()) rows.ReadRow();
        EXPECT_EQ(rows.Line(), 1000000U);
    }
}

}  // namespace
}  // namespace vexlator
