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
    const std::pair<const char*, std::vector<GoOption>> cases[] = {
        {"", {}},
        {"GO ", {}},
        {"GO runmin=1,chkAll=1", {{"runmin", "1"}, {"chkAll", "1"}}},
        {"GO  a = 1 , B=x=y,,=2,c", {{"a ", " 1"}, {"B", "x"}, {"c", ""}}},
    };
    for (const auto& [command, options] : cases) EXPECT_EQ(GoOptions(command), options) << command;
}

TEST(Extent, TheBlockIsTakenOutOfTheText) {
    struct Case {
        std::string text, left;
        std::array<double, 4> extent;
    };
    const Case cases[] = {
        {"IMPORT a.SHP ?BOX 1,2,3,4 ?", "IMPORT a.SHP", {1, 2, 3, 4}},
        {" a ?box -1.5,2e1,x,?b ", "a b", {-1.5, 20, 0, 0}},
        {"a?BOX1?b", "ab", {0, 0, 0, 0}},
    };
    for (const Case& c : cases) {
        std::string text = c.text;
        auto extent = TakeExtent(text);
        ASSERT_TRUE(extent) << c.text;
        EXPECT_EQ(text, c.left) << c.text;
        EXPECT_EQ((std::array{extent->minX, extent->minY, extent->maxX, extent->maxY}), c.extent) << c.text;
    }
    for (std::string open : {"a ?BO", "a ?BOX", " a ?BOX 1,2,3,4 "}) {
        std::string text = open;
        EXPECT_FALSE(TakeExtent(text)) << open;
        EXPECT_EQ(text, open);
    }
}

TEST(Import, ArgumentIsSplitAtItsFirstBar) {
    struct Case {
        std::string text, code, path, folder, list;
    };
    const Case cases[] = {
        {R"(IMPORT C:\d\a.SHP|C:\d\b.SHP|c)", "SHP", R"(C:\d\a.SHP)", R"(C:\d)", R"(|C:\d\b.SHP|c)"},
        {"IMPORT /p/a.mid|", "MID", "/p/a.mid", "/p", "|"},
        {"IMPORT |b.SHP", "", "", "", "|b.SHP"},
        {"IMPORT /p/x", "", "/p/x", "/p", ""},
        {"IMPORT", "", "", "", ""},
        {"IMPORT   /p/a.shp", "SHP", "/p/a.shp", "/p", ""},  // a switch was taken out
    };
    for (const Case& c : cases) {
        ImportCommand command = ParseImport(c.text);
        EXPECT_EQ(command.code + " " + command.sourcePath, c.code + " " + c.path) << c.text;
        EXPECT_EQ(command.sourceFolder + " " + command.fileList, c.folder + " " + c.list) << c.text;
    }
}

}  // namespace
}  // namespace vexlator::startup
