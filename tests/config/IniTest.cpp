// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Ini.h"
#include "support/Processes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vexlator::config {
namespace {

using test::TempFolder;

TEST(Ini, Reading) {
    struct {
        std::string_view text, value;  // value of [Sec] Key
    } const cases[] = {
        {"[Sec]\nKey=v", "v"},
        {"[Sec]\rKey=v\r", "v"},
        {"\xEF\xBB\xBF[Sec]\nKey=v", "v"},
        {"Key=before\n[Sec]\nKey=v", "v"},
        {" [ Sec ] ; note\n \tKey \t= \tv w \t\n", "v w"},
        {"[Sec]\nKey=a=b;c", "a=b;c"},
        {"[Sec]\n;Key=no\n ; Key=no\nKey=v", "v"},
        {"[Sec]\nKey\nKey=v", "v"},
        {"[Sec]\nKey=first\nKey=second", "first"},
        {"[Sec]\nA=1\n[Sec]\nKey=v", ""},  // the first section with a name counts
        {"[Sec\nKey=no\n[Sec]\nKey=v", "v"},
        {"[Sec]\nKey=  ", ""},
        {"[Sec]\nKey=\"  v  \"", "  v  "},
        {"[Sec]\nKey='v'", "v"},
        {"[Sec]\nKey=\"\"v\"\"", "\"v\""},
        {"[Sec]\nKey=\"v'", "\"v'"},
        {std::string_view("[Sec]\nKey=a\0b\n", 14), "a"},
        {"[Sec]\nKey=Caf\xE9", "Caf\xC3\xA9"},
    };
    for (const auto& c : cases) EXPECT_EQ(IniValue(c.text, "Sec", "Key"), c.value) << c.text;
    EXPECT_EQ(IniValue("[S]\nCl\xE9=1", "s", "Cl\xC3\xA9"), "1") << "a name in a Windows-1252 file";
    EXPECT_EQ(IniValue("[S]\nK=" + std::string(3000, 'x'), "S", "K"), std::string(2047, 'x'));
    std::string accents;
    for (int i = 0; i < 2048; ++i) accents += "\xC3\xA9";
    EXPECT_EQ(IniValue("[S]\nK=" + accents, "S", "K"), accents.substr(2)) << "characters, not bytes";
}

TEST(Ini, Writing) {
    struct {
        std::string_view before, key, value, after;  // values of [Sec]
    } const cases[] = {
        {"", "Key", "v", "[Sec]\r\nKey=v\r\n"},
        {"[sec]\nKEY = old ;x \nB=1", "Key", "new", "[sec]\nKEY = new \nB=1"},
        {"[Sec]\n  Key  =  \"old\"\n", "Key", "", "[Sec]\n  Key  =  \n"},
        {"[Sec]\nKey=a\nKey=b\n", "Key", "v", "[Sec]\nKey=v\nKey=b\n"},
        {"[Sec]\r\nA=1\r\n; note\r\n\r\n[T]\r\n", "Key", "v",
         "[Sec]\r\nA=1\r\nKey=v\r\n; note\r\n\r\n[T]\r\n"},
        {"[Sec]\rA=1", "Key", "v", "[Sec]\rA=1\rKey=v\r"},
        {"[Sec]", "Key", "v", "[Sec]\r\nKey=v\r\n"},
        {"[T]\nA=1", "Key", "v", "[T]\nA=1\n[Sec]\nKey=v\n"},
        {"\xEF\xBB\xBF[Sec]\nKey=o\n", "Key", "v", "\xEF\xBB\xBF[Sec]\nKey=v\n"},
        {"", "Key", "'v'", "[Sec]\r\nKey=\"'v'\"\r\n"},
        {"", "Key", "a\r\n[T]\nB=1", "[Sec]\r\nKey=a  [T] B=1\r\n"},
        {"", "Key", std::string_view("a\0b", 3), "[Sec]\r\nKey=a b\r\n"},
        {"x", "Ke\ny", "v", "x"},
        {"x", "K=y", "v", "x"},
        {"x", ";K", "v", "x"},
        {"x", "[K]", "v", "x"},
        {"[Sec]\nA=\xE9\n", "Key", "\xC3\xB1", "[Sec]\nA=\xE9\nKey=\xF1\n"},
        {"[Sec]\nA=\xE9\n", "Key", "\xC4\x8D", "[Sec]\nA=\xC3\xA9\nKey=\xC4\x8D\n"},
        {"[Sec]\nA=1\n", "Key", "\xF1", "[Sec]\nA=1\nKey=\xC3\xB1\n"},
        // Without its one byte that is not UTF-8, the rest would wrongly be read as UTF-8.
        {"[Sec]\nA=\xC3\xA9\nKey=\xE9\n", "Key", "e", "[Sec]\nA=\xC3\x83\xC2\xA9\nKey=e\n"},
    };
    for (const auto& c : cases) EXPECT_EQ(WithIniValue(c.before, "Sec", c.key, c.value), c.after) << c.before;
    EXPECT_EQ(WithIniValue("x", "S]\n[T", "K", "v"), "x");
}

TEST(Ini, Files) {
    TempFolder folder;
    std::string file = folder / "gv.ini";
    EXPECT_EQ(ReadIniFile(file, "S", "K"), "");
    WriteIniFile(file, "S", "K", "1");
    EXPECT_EQ(ReadIniFile(folder / "GV.INI", "s", "k"), "1");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1)
        << "no lock file is left";
    EXPECT_THROW(WriteIniFile(folder / "none/gv.ini", "S", "K", "1"), std::runtime_error);
    EXPECT_THROW(WriteIniFile(folder.Path(), "S", "K", "1"), std::runtime_error);
    EXPECT_EQ(ReadIniFile(folder.Path(), "S", "K"), "");
}

TEST(Ini, ManyProcessesLoseNoKey) {
    constexpr int processes = 8, keys = 100;
    // Every write waits for the disk. On a disk in memory the processes meet more often, and sooner.
    if (std::filesystem::exists("/dev/shm")) ::setenv("TMPDIR", "/dev/shm", 1);
    TempFolder folder;
    ::unsetenv("TMPDIR");
    std::string file = folder.Write("gv.ini", "[Keep]\nA=1\n");
    auto name = [](int process, int key) {
        return "K" + std::to_string(process) + "_" + std::to_string(key);
    };
    test::RunAtOnce(processes, [&](int p) {
        for (int k = 0; k < keys; ++k) WriteIniFile(file, p % 2 ? "Odd" : "Even", name(p, k), name(k, p));
        return true;
    });
    std::string text = TempFolder::Read(file);
    for (int p = 0; p < processes; ++p)
        for (int k = 0; k < keys; ++k)
            EXPECT_EQ(IniValue(text, p % 2 ? "Odd" : "Even", name(p, k)), name(k, p));
    EXPECT_TRUE(text.starts_with("[Keep]\nA=1\n"));
}

}  // namespace
}  // namespace vexlator::config
