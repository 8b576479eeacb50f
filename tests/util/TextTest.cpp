// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "support/TempFolder.h"
#include "util/Paths.h"
#include "util/Programs.h"
#include "util/Text.h"
#include "util/Translation.h"

#include <gtest/gtest.h>

namespace vexlator::util {
namespace {

TEST(Text, SearchingGoesOnBehindWhatWasFound) {
    EXPECT_EQ(GetField(1, "a||b|c||d", "||"), "b|c");
    EXPECT_EQ(GetField(1, "a|||b", "||"), "|b");
    EXPECT_EQ(GetField(1, "a,b", ""), "");
    EXPECT_EQ(CountOf("aaa", "aa"), 2U);
    EXPECT_EQ(CountOf("abc", ""), 0U);
    EXPECT_EQ(ReplaceAll("a%u%%u%", "%u%", "%u%%u%"), "a%u%%u%%u%%u%");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
}

TEST(Paths, Parts) {
    struct {
        std::string_view path, folder, name, extension, base;
    } const cases[] = {
        {"C:\\Jobs\\J12\\Survey.SHP", "C:\\Jobs\\J12", "Survey.SHP", "SHP", "Survey"},
        {"/p/q/a.b.vdf", "/p/q", "a.b.vdf", "vdf", "a.b"},
        {"C:\\a/b\\c", "C:\\a/b", "c", "", "c"},
        {"file.", "", "file.", "", "file"},
        {"C:\\d\\", "C:\\d", "", "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FolderOf(c.path), c.folder) << c.path;
        EXPECT_EQ(FileNameOf(c.path), c.name) << c.path;
        EXPECT_EQ(ExtensionOf(c.path), c.extension) << c.path;
        EXPECT_EQ(BaseNameOf(c.path), c.base) << c.path;
    }
    EXPECT_EQ(ChangeExtension("C:\\a.b\\file", "VDF"), "C:\\a.VDF") << "callers pass file paths";
    EXPECT_EQ(ChangeExtension("C:\\a\\x.tar.gz", ""), "C:\\a\\x.tar");
    EXPECT_EQ(ChangeExtension("name", "VDF"), "name");
}

TEST(Paths, SafeFileNames) {
    struct {
        std::string_view name, safe;
    } const cases[] = {
        {"../../etc/passwd", ".._.._etc_passwd"},
        {"C:\\x", "C__x"},
        {"", "_"},
        {"..", "_"},
        {"a<b>c:\"|?*\n\x7F", "a_b_c_______"},
        {"con", "_con"},
        {"Lpt1.txt", "_Lpt1.txt"},
        {"NUL .x", "_NUL .x"},
        {"COM0", "COM0"},
        {"Stra\xC3\x9F"
         "e",
         "Stra\xC3\x9F"
         "e"},
    };
    for (const auto& c : cases) EXPECT_EQ(SafeFileName(c.name), c.safe) << c.name;
    EXPECT_EQ(SafeFileName(std::string(119, 'x') + "\xC3\x9F"), std::string(119, 'x'));
    EXPECT_EQ(SafeFileName(std::string(118, 'x') + "\xC3\x9F"
                                                   "y"),
              std::string(118, 'x') + "\xC3\x9F");
}

TEST(Paths, NextFreeName) {
    test::TempFolder folder;
    EXPECT_EQ(NextFreeName(folder / "Survey.VDF"), folder / "Survey.VDF");
    folder.Write("survey.bak", "");
    EXPECT_EQ(NextFreeName(folder / "Survey.VDF"), folder / "Survey(1).VDF") << "a .BAK takes the name";
    folder.Write("Survey(1).VDF", "");
    folder.Write("Survey(4).VDF", "");
    EXPECT_EQ(NextFreeName(folder / "Survey(4).VDF"), folder / "Survey(2).VDF");
    folder.Write("plain", "");
    EXPECT_EQ(NextFreeName(folder / "plain"), folder / "plain(1)");
}

TEST(Translation, FirstMatchElseCollected) {
    test::TempFolder folder;
    std::string file = folder.Write("gv.FR",
                                    "Yes|||Oui\r\nYes|||Si\r\nGo now|||D\xE9"
                                    "part");
    EXPECT_EQ(TranslateText("Yes", file), "Oui");
    EXPECT_EQ(TranslateText("Go now", file),
              "D\xC3\xA9"
              "part");
    EXPECT_EQ(TranslateText("Go", file), "Go") << "the whole text must match";
    EXPECT_EQ(TranslateText("Caf\xC3\xA9", file), "Caf\xC3\xA9");
    EXPECT_EQ(TranslateText("Caf\xC3\xA9", file), "Caf\xC3\xA9");
    EXPECT_EQ(TranslateText("a\nb", file), "a\nb");
    EXPECT_EQ(test::TempFolder::Read(file),
              "Yes|||Oui\r\nYes|||Si\r\nGo now|||D\xE9"
              "part\r\nGo|||Go\r\nCaf\xE9|||Caf\xE9\r\n");
}

TEST(Translation, Captions) {
    test::TempFolder folder;
    std::vector<Caption> captions = {
        {"lblGo", "Go"}, {"Label1", "Go"}, {"btnGo", "Go"}, {"chkGo", "Go"}, {"txtGo", "Go"}};
    TranslateCaptions(captions, folder.Write("lang.gb.txt", "Go|||Never"));
    EXPECT_EQ(captions[0].text, "Go");
    TranslateCaptions(captions, folder.Write("lang.de", "Go|||Los"));
    std::string all;
    for (const Caption& caption : captions) all += caption.text + " ";
    EXPECT_EQ(all, "Los Los Los Los Go ");
}

TEST(Programs, ConverterComesFromTheUserThenTheMachine) {
    test::TempFolder folder;
    ::setenv("VEXLATOR_REGISTRY", folder.Path().c_str(), 1);
    const std::string key = "/SOFTWARE/VectorDraw/UserValues/DrawingConvertAppPath";
    EXPECT_EQ(VectorDrawConverterPath("C:\\gv"), "C:\\gv\\vdconv.exe");
    folder.Write("machine" + key, "D:\\machine.exe\r\nrest");
    EXPECT_EQ(VectorDrawConverterPath("C:\\gv"), "D:\\machine.exe");
    folder.Write("user" + key, "D:\\user.exe");
    EXPECT_EQ(VectorDrawConverterPath("C:\\gv"), "D:\\user.exe");
    ::unsetenv("VEXLATOR_REGISTRY");
}

}  // namespace
}  // namespace vexlator::util
