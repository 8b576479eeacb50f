// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/CommandLine.h"

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vexlator::startup {
namespace {

TEST(GoOptions, AreTheItemsAfterTheFourthCharacter) {
    struct Case {
        std::string command;
        std::vector<GoOption> options;
    };
    for (const Case& c : std::vector<Case>{
             {"GO", {}},
             {"GO ", {}},
             {"", {}},
             {"GO a=1", {{"a", "1"}}},
             {"GO runmin=1,chkAll=1", {{"runmin", "1"}, {"chkAll", "1"}}},
             {"GO  a = 1 , B=x=y,c", {{"a ", " 1"}, {"B", "x"}, {"c", ""}}},
             {"GO a=1,,=2,", {{"a", "1"}}},
         })
        EXPECT_EQ(GoOptions(c.command), c.options) << c.command;
}

TEST(Quiet, AnyLetterCaseSetsItAndCapitalsAreRemoved) {
    struct Case {
        std::string text;
        bool quiet;
        std::string left;
    };
    for (const Case& c : std::vector<Case>{
             {"IMPORT a.SHP", false, "IMPORT a.SHP"},
             {"-QUIET", true, ""},
             {"-QUIET a.SHP-QUIET", true, " a.SHP"},
             {"a-quiet.SHP", true, "a-quiet.SHP"},
         }) {
        std::string text = c.text;
        EXPECT_EQ(TakeQuiet(text), c.quiet) << c.text;
        EXPECT_EQ(text, c.left) << c.text;
    }
}

TEST(Extent, TheBlockIsTakenOutOfTheText) {
    struct Case {
        std::string text;
        std::string left;
        std::array<double, 4> extent;
    };
    for (const Case& c : std::vector<Case>{
             {"IMPORT a.SHP ?BOX 1,2,3,4 ?", "IMPORT a.SHP", {1, 2, 3, 4}},
             {"?BOX1,2,3,4?", "", {1, 2, 3, 0}},
             {" a ?box -1.5,2e1,x,?b ", "a b", {-1.5, 20, 0, 0}},
             {"a?BOX?b", "ab", {0, 0, 0, 0}},
             {"a?BOX1?b", "ab", {0, 0, 0, 0}},
         }) {
        std::string text = c.text;
        auto extent = TakeExtent(text);
        ASSERT_TRUE(extent) << c.text;
        EXPECT_EQ(text, c.left) << c.text;
        EXPECT_EQ((std::array{extent->minX, extent->minY, extent->maxX, extent->maxY}), c.extent) << c.text;
    }
}

TEST(Extent, AnOpenBlockStays) {
    for (std::string open : {"a ", "a ?BO", "a ?BOX", " a ?BOX 1,2,3,4 ", "? a ?BOX 1"}) {
        std::string text = open;
        EXPECT_FALSE(TakeExtent(text)) << open;
        EXPECT_EQ(text, open);
    }
}

TEST(Quotes, FirstAndLastCharacterGo) {
    EXPECT_EQ(WithoutQuotes(R"("C:\a b.SHP")"), R"(C:\a b.SHP)");
    EXPECT_EQ(WithoutQuotes(R"("C:\a b.SHP" )"), R"(C:\a b.SHP")");
    EXPECT_EQ(WithoutQuotes(R"(C:\a b.SHP")"), R"(C:\a b.SHP")");
    EXPECT_EQ(WithoutQuotes("\"\""), "");
    EXPECT_EQ(WithoutQuotes("\""), "");
}

TEST(Mode, IsToldByTheFirstWordInCapitals) {
    EXPECT_EQ(ModeOf("IMPORT a.SHP"), Mode::Import);
    EXPECT_EQ(ModeOf("import a.SHP"), Mode::Export);
    EXPECT_EQ(ModeOf("SELECT"), Mode::Select);
    EXPECT_EQ(ModeOf("select"), Mode::Export);
    EXPECT_EQ(ModeOf(""), Mode::Select);
}

TEST(Import, ArgumentIsSplitAtItsFirstBar) {
    struct Case {
        std::string text, code, path, folder, list;
    };
    for (const Case& c : std::vector<Case>{
             {R"(IMPORT C:\d\a.SHP|C:\d\b.SHP|C:\d\c.SHP)", "SHP", R"(C:\d\a.SHP)", R"(C:\d)",
              R"(|C:\d\b.SHP|C:\d\c.SHP)"},
             {"IMPORT /p/x.txt", "TXT", "/p/x.txt", "/p", ""},
             {"IMPORT /p/a.mid|", "MID", "/p/a.mid", "/p", "|"},
             {"IMPORT |b.SHP", "", "", "", "|b.SHP"},
             {"IMPORT /p/x", "", "/p/x", "/p", ""},
             {"IMPORT ", "", "", "", ""},
             {"IMPORT", "", "", "", ""},
             {"IMPORT   /p/a.shp", "SHP", "/p/a.shp", "/p", ""},  // a switch was taken out
         }) {
        ImportCommand command = ParseImport(c.text);
        EXPECT_EQ(command.code, c.code) << c.text;
        EXPECT_EQ(command.sourcePath, c.path) << c.text;
        EXPECT_EQ(command.sourceFolder, c.folder) << c.text;
        EXPECT_EQ(command.fileList, c.list) << c.text;
    }
}

TEST(Export, DrawingAndFolderLieBesideThePath) {
    struct Case {
        std::string text, code, drawing, target;
    };
    for (const Case& c : std::vector<Case>{
             {R"(C:\Jobs\J12\Survey.dxf)", "DXF", R"(C:\Jobs\J12\Survey.VDF)", R"(C:\Jobs\J12\Survey)"},
             {"/p/a.b.SHP", "SHP", "/p/a.b.VDF", "/p/a.b"},
             {"/p/a.SHP\"", "SHP\"", "/p/a.VDF", "/p/a"},
             {"/p.q/a", "", "/p.q/a", "/p.q/a"},
         }) {
        ExportCommand command = ParseExport(c.text);
        EXPECT_EQ(command.code, c.code) << c.text;
        EXPECT_EQ(command.drawingPath, c.drawing) << c.text;
        EXPECT_EQ(command.targetPath, c.target) << c.text;
    }
}

TEST(Paths, RelativeOnesBecomeAbsolute) {
    EXPECT_TRUE(ParseImport("IMPORT a.SHP").sourcePath.starts_with('/'));
    EXPECT_FALSE(ParseImport("IMPORT a.SHP").sourceFolder.empty());
    EXPECT_TRUE(ParseExport("a.SHP").drawingPath.starts_with('/'));
}

}  // namespace
}  // namespace vexlator::startup
