// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/go/SelectionSettings.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <string>

namespace vexlator::startup {
namespace {

/// What a program gets as its argument when a shell takes the line.
std::string ArgumentOf(std::string line) {
    line.replace(0, line.find(' '), "printf %s");
    std::string text;
    std::FILE* shell = popen(line.c_str(), "r");
    for (int c = std::getc(shell); c != EOF; c = std::getc(shell)) text += static_cast<char>(c);
    return pclose(shell) == 0 ? text : "";
}

TEST(SelectionSettings, TheShownCommandPresetsTheSameChoices) {
    for (std::string source : {R"(C:\maps\*.shp)", "/m/a.shp|b.MIF", R"(/m/O'Neil "$HOME" `ls` \!.tab)"}) {
        SelectionSettings choices{.txtSource = source, .txttarget = "/out/a b.GRP", .chkAll = true};
        SelectionSettings preset{.txtStyling = "old.BSF", .chkClear = true, .chkExplode = true};
        Preset(preset, GoOptions(ArgumentOf(ShowAsCommand(choices).line)));
        EXPECT_EQ(preset.txtSource, source);
        EXPECT_EQ(preset.txttarget + preset.txtStyling, choices.txttarget);
        EXPECT_TRUE(preset.chkAll && !preset.chkClear && !preset.chkExplode);
    }
    const std::string wrong[] = {"a,b.shp", "a=b.shp", "a.shp ", std::string(2048, 'a')};
    for (const std::string& source : wrong)
        EXPECT_NE(ShowAsCommand({.txtSource = source}).problem, ShownCommand::Problem::None) << source;
}

TEST(SelectionSettings, PathsOfTheTarget) {
    SelectionSettings tiles;
    ResetToJPGlist(tiles, R"(C:\Maps\Sheet_files\t_1.jpg)");
    EXPECT_TRUE(tiles.chkAll);
    EXPECT_EQ(tiles.txttarget, R"(C:\Maps\Sheet_files\Sheet.GRP)");
    EXPECT_EQ(TargetFor(R"(C:\in\b.shp)", R"(D:\out\a.GRP)"), R"(D:\out\b.GRP)");
    EXPECT_EQ(TargetFor(R"(C:\in\b.JPG)", R"(D:\out\a.GRP)"), R"(D:\out\a.GRP)");
    EXPECT_EQ(TargetFor(R"(C:\in\b.JPG)", ""), R"(C:\in\b\b.GRP)");
    for (const char* target : {R"(D:\town)", R"(D:\town\)", R"(D:\town\town.GRP)"})
        EXPECT_EQ(WithWholePaths({.txttarget = target}).txttarget, R"(D:\town\town.GRP)");
}

}  // namespace
}  // namespace vexlator::startup
