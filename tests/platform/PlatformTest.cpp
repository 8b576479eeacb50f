// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/CodePages.h"
#include "platform/Paths.h"
#include "platform/Process.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace vexlator::platform {
namespace {

using test::TempFolder;

struct DrivesTest : testing::Test {
    DrivesTest() { ::setenv("VEXLATOR_DRIVES", folder.Path().c_str(), 1); }
    ~DrivesTest() override { ::unsetenv("VEXLATOR_DRIVES"); }
    TempFolder folder;
};

TEST_F(DrivesTest, NativePaths) {
    const std::string& drives = folder.Path();
    std::pair<std::string, std::string> const cases[] = {
        {"C:\\Jobs\\a.SHP", drives + "/C/Jobs/a.SHP"},
        {"d:/x", drives + "/D/x"},
        {"C:", drives + "/C"},
        {"\\\\server\\share\\x", drives + "/unc/server/share/x"},
        {"/home/me\\x", "/home/me/x"},
        {"rel\\x", "rel/x"},
        {"1:\\x", "1:/x"},
    };
    for (const auto& [path, native] : cases) EXPECT_EQ(NativePath(path), native) << path;
    for (std::string path : {"c:\\x", "\\\\s\\x", "/x", ""}) EXPECT_EQ(AbsolutePath(path), path);
    EXPECT_EQ(AbsolutePath("x"), std::filesystem::current_path().string() + "/x");
}

TEST_F(DrivesTest, LookUpWithoutCase) {
    folder.Write("C/Jobs/J12/Survey.VDF", "");
    folder.Write("C/Jobs/J12/survey.vdf", "");
    EXPECT_EQ(FindExisting("c:\\jobs\\j12\\SURVEY.vdf"), folder / "C/Jobs/J12/Survey.VDF");
    EXPECT_EQ(FindExisting("c:\\JOBS\\j12\\survey.vdf"), folder / "C/Jobs/J12/survey.vdf")
        << "the exact name first";
    EXPECT_EQ(FindExisting("C:\\jobs\\none\\x"), "");
    EXPECT_EQ(FindExisting("C:\\jobs\\j12\\Survey.VDF\\x"), "");
    EXPECT_EQ(FindExisting(""), "");
    EXPECT_EQ(PathToWrite("C:\\jobs\\J12\\new.SHP"), folder / "C/Jobs/J12/new.SHP");
    EXPECT_EQ(PathToWrite("C:\\jobs\\New\\Sub\\a"), folder / "C/Jobs/New/Sub/a");
    EXPECT_FALSE(std::filesystem::exists(folder / "E"));
    PathToWrite("e:\\temp");
    EXPECT_TRUE(std::filesystem::exists(folder / "E")) << "a drive is there when it is written to";
}

TEST(CodePages, Windows1252RoundTripOfEveryByte) {
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    std::uint64_t replaced = 0;
    std::string text = Utf8FromWindows1252(all);
    EXPECT_TRUE(IsUtf8(text));
    EXPECT_EQ(Windows1252FromUtf8(text, &replaced), all);
    EXPECT_EQ(replaced, 0U);
    EXPECT_EQ(Utf8FromWindows1252("\x80\xE9"), "\xE2\x82\xAC\xC3\xA9");
    EXPECT_EQ(Windows1252FromUtf8("a\xC4\x8D"
                                  "b\xF0\x9F\x98\x80\xFF",
                                  &replaced),
              "a?b??");
    EXPECT_EQ(replaced, 3U);
}

TEST(CodePages, Utf8) {
    for (std::string_view good : {"", "plain text of some length", "\xC3\xA9", "\xE2\x82\xAC",
                                  "\xF0\x9F\x98\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(IsUtf8(good)) << good;
    for (std::string_view bad : {"\xC3", "\xA9", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80",
                                 "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "long enough for words \xFF"})
        EXPECT_FALSE(IsUtf8(bad)) << bad;
    struct {
        std::string_view text;
        std::size_t most;
        std::string_view cut;
    } const cases[] = {
        {"abc", 2, "ab"},
        {"a\xC3\xA9", 2, "a"},
        {"a\xC3\xA9", 3, "a\xC3\xA9"},
        {"\xF0\x9F\x98\x80x", 3, ""},
        {"\x80\x80\x80\x80\x80\x80", 5, "\x80\x80\x80\x80\x80"},
    };
    for (const auto& c : cases) EXPECT_EQ(CutUtf8(c.text, c.most), c.cut);
}

TEST(CodePages, DecoderNames) {
    struct {
        std::string_view name, bytes, text;
    } const cases[] = {
        {"ANSI 1252", "\x80", "\xE2\x82\xAC"},
        {"ISO-8859-1", "\x92", "\xE2\x80\x99"},
        {"windows-1250", "\xE8", "\xC4\x8D"},
        {"OEM 437", "\x82", "\xC3\xA9"},
        {"CodePage850", "\x82", "\xC3\xA9"},
        {"65001", "\xC3\xA9", "\xC3\xA9"},
        {" UTF-8\r\n", "\xC3\xA9", "\xC3\xA9"},
        {"BIG5", "\xA4\xA4", "\xE4\xB8\xAD"},
        {"WindowsVietnamese", "c\xE2", "c\xC3\xA2"},  // a letter at the end that an accent can follow
        {"Neutral", "\xE9", "\xC3\xA9"},
        {"ISO-2022-JP", "\x1B$B0!\x1B(B", "\xE4\xBA\x9C"},  // seven bits, but not ASCII
    };
    for (const auto& c : cases) {
        Decoder decoder(c.name);
        EXPECT_TRUE(decoder.IsKnown()) << c.name;
        EXPECT_EQ(decoder.Decode(c.bytes), c.text) << c.name;
        EXPECT_EQ(decoder.Misfits(), 0U) << c.name;
    }
    for (std::string name :
         {std::string(), std::string("no such page"), std::string("CP99999"), std::string("//"),
          std::string("../../x"), std::string(5000, 'x'), std::string(5000, '1')}) {
        Decoder decoder(name);
        EXPECT_FALSE(decoder.IsKnown()) << name;
        EXPECT_EQ(decoder.Decode("\xE9"), "\xC3\xA9") << name;
    }
}

TEST(CodePages, WrongBytesAreKept) {
    Decoder utf8("UTF-8"), big5("BIG5");
    EXPECT_EQ(utf8.Decode("Caf\xE9"), "Caf\xC3\xA9");
    EXPECT_EQ(big5.Decode("x\xA4"), "x\xC2\xA4");
    EXPECT_EQ(big5.Decode("\xA4\xA4"), "\xE4\xB8\xAD") << "what went wrong before is forgotten";
    EXPECT_EQ(utf8.Misfits() + big5.Misfits(), 2U);
}

TEST(Process, CommandLines) {
    TempFolder folder;
    folder.Write("Two Words.sh", "#!/bin/sh\nprintf '%s|' \"$@\" > \"$0.out\"\n");
    ::chmod((folder / "Two Words.sh").c_str(), 0700);
    EXPECT_EQ(RunProgram("\"" + folder.Path() + "\\two words.SH\" a  \"b c\" \"\" d\"e f\"g"), 0);
    EXPECT_EQ(TempFolder::Read(folder / "Two Words.sh.out"), "a|b c||de fg|");
    EXPECT_EQ(RunProgram("sh -c \"kill -9 $$\""), -1);
    int calls = 0;
    EXPECT_EQ(RunProgram("sh -c \"sleep 0.1; exit 3\"", [&] { ++calls; }), 3);
    EXPECT_GT(calls, 0);
}

TEST(Process, CountryOfTheLocale) {
    const std::pair<const char*, const char*> cases[] = {
        {"en_GB.UTF-8", "GB"}, {"fr_FR@euro", "FR"}, {"C", "UNK"}, {"xx_1", "UNK"}};
    for (auto [locale, country] : cases) {
        ::setenv("LC_ALL", locale, 1);
        EXPECT_EQ(LocaleCountry(), country) << locale;
    }
    ::setenv("LC_ALL", "", 1);
    ::setenv("LANG", "de_AT", 1);
    EXPECT_EQ(LocaleCountry(), "AT");
    ::unsetenv("LC_ALL");
    ::unsetenv("LANG");
}

}  // namespace
}  // namespace vexlator::platform
