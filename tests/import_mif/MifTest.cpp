// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Run.h"
#include "drawing/Drawing.h"
#include "formats/RowReader.h"
#include "formats/mif/MifHeader.h"
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
    /// Imports one file with these objects and the columns A and B.
    std::string Objects(const std::string& objects, const std::string& mid, const std::string& header = "") {
        folder.Write("CODE.MIF",
                     "Version 300\n" + header + "Columns 2\n  A Char(10)\n  B Integer\nData\n\n" + objects);
        folder.Write("CODE.MID", mid);
        return Import("CODE.MID");
    }
    Entity At(std::size_t index) { return drawing.entityAt(index); }
};

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
        "Text\n\"t\"\n0 0 3 4\nPoint 5 5\nEllipse 0 0 6 8\n"
        "Roundrect 0 0 40 20\n 8\n",
        "a,1\nb,2\nc,3\nd,4\ne,5\nf,6\ng,7\nh,8\ni,9\n");
    EXPECT_EQ(run.ui.messages, Messages{});
    ASSERT_EQ(run.drawing.entityCount(), 11U) << text;
    EXPECT_EQ(run.At(10).vertexCount(), run.At(2).vertexCount());
    // A hexagon at the length of the diagonal.
    EXPECT_NEAR(drawing::distance(run.At(9).vertex(1), {3 + 5 * std::sqrt(3.0), 9, 0}), 0, 1e-9);
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

/// A row long enough to end a chunk of the drawing's file.
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

TEST(MifImport, TemplatesTakeWidthsFromColumns) {
    Office run;
    run.Ini("[GENERICIN]\nGenATP=1\n");
    run.ui.answers = {true};
    run.folder.Write("Water main.mif",
                     "Columns 6\n \"NAME\" Char(30)\n C1 char\n N1 Smallint\n"
                     " N2 Decimal(12,3)\n N3 Integer\n L Logical\nData\nPoint 1 1\n");
    run.folder.Write("Water main.mid", "");
    run.Import("Water main.MID");
    EXPECT_EQ(run.ui.questions, Messages{"Generate ATP For WATER MAIN"});
    EXPECT_EQ(test::TempFolder::Read(run.folder / "ATP/WATER MAIN.ATP"),
              "[26,09]\r\n[01,01]NAME        ,C30.00\r\n[01,02]C1          ,C64.00\r\n"
              "[01,03]N1          ,C06.00\r\n[01,04]N2          ,C12.00\r\n[01,05]N3          ,C10.00\r\n"
              "[01,06]L           ,C64.00\r\n");
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
        formats::RowReader rows(text, ",");
        while (!rows.AtEnd()) rows.ReadRow();
        EXPECT_EQ(rows.Line(), 1000000U);
    }
}

}  // namespace
}  // namespace vexlator
