// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "support/TempFolder.h"
#include "util/Files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace vexlator::util {
namespace {

using test::TempFolder;

std::vector<std::string> Lines(std::string_view text) {
    std::vector<std::string> lines;
    for (LineReader reader(text); !reader.AtEnd();) lines.emplace_back(reader.ReadTextLine());
    return lines;
}

TEST(LineReader, LineEnds) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"", {}},
        {"a", {"a"}},
        {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
        {"a\r\n\r\n\n\r\rb\r", {"a", "", "", "", "", "b"}},
        {"\r\r\n", {"", ""}},
        {std::string(2000, 'x') + "\r\ny", {std::string(2000, 'x'), "y"}},
    };
    for (const auto& [text, lines] : cases) EXPECT_EQ(Lines(text), lines) << text;
}

TEST(LineReader, CostGrowsWithTheText) {
    std::string text;
    for (int i = 0; i < 2'000'000; ++i) text += "x\r";
    EXPECT_EQ(Lines(text).size(),
              2'000'000U);  // would take hours if each line searched for a distant line feed
}

TEST(Files, Patterns) {
    struct {
        std::string_view name, pattern;
        bool matches;
    } const cases[] = {
        {"a.shp", "*.SHP", true},
        {"a.shpx", "*.shp", false},
        {"abcabd", "*bc", false},
        {"ab.txt", "a?.t*t", true},
        {"\xC3\x89"
         "a",
         "?a", true},
        {"\xC3\x89", "\xC3", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MatchesPattern(c.name, c.pattern), c.matches) << c.name << " " << c.pattern;
    EXPECT_FALSE(MatchesPattern(std::string(5000, 'a'), "*a*a*a*a*a*a*a*a*a*b"));
}

TEST(Files, CopyMoveDelete) {
    TempFolder folder;
    for (std::string name : {"one.JPG", "two.jpg", "three.txt"}) folder.Write(name, name);
    folder.Write("empty.jpg", "");
    MakeFolderTree(folder / "deep\\target");
    EXPECT_TRUE(CopyFiles(folder / "*.jpg", folder / "deep\\target\\*.*"));
    for (std::string name : {"one.JPG", "two.jpg"})
        EXPECT_EQ(TempFolder::Read(folder / ("deep/target/" + name)), name);
    EXPECT_FALSE(CopyFiles(folder / "empty.jpg", folder / "one.JPG")) << "an empty source counts as missing";
    EXPECT_FALSE(CopyFiles(folder / "*.none", folder.Path() + "/"));
    EXPECT_TRUE(MoveFile(folder / "three.txt", folder / "ONE.jpg"));
    EXPECT_EQ(TempFolder::Read(folder / "ONE.jpg"), "three.txt");
    EXPECT_FALSE(std::filesystem::exists(folder / "one.JPG")) << "its other letter case is replaced";
    EXPECT_FALSE(MoveFile(folder / "three.txt", folder / "ONE.jpg"));
    DeleteFiles(folder / "deep/target/*.JPG");
    RemoveFolder(folder / "deep/target");
    EXPECT_FALSE(std::filesystem::exists(folder / "deep/target"));
}

TEST(Files, SmallTexts) {
    TempFolder folder;
    EXPECT_TRUE(WriteTextFile(folder / "a.txt", "first\r\nsecond"));
    EXPECT_EQ(TempFolder::Read(folder / "a.txt"), "first\r\nsecond\r\n");
    EXPECT_EQ(ReadFirstLine(folder / "A.TXT"), "first");
    EXPECT_EQ(ReadFirstLine(folder / "none"), "");
    EXPECT_FALSE(WriteTextFile(folder / "none/a.txt", "x"));
}

TEST(Files, TempFolderIsOnTheFirstDriveThatCanBeWritten) {
    TempFolder folder;
    ::setenv("VEXLATOR_DRIVES", folder.Path().c_str(), 1);
    folder.Write("C/temp", "a file where the folder should be");
    EXPECT_EQ(FindTempFolder(), "D:\\temp\\gv");
    EXPECT_TRUE(std::filesystem::exists(folder / "D/temp/gv/gv.mrk"));
    ::unsetenv("VEXLATOR_DRIVES");
}

}  // namespace
}  // namespace vexlator::util
