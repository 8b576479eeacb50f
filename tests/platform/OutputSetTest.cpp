// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/FileMark.h"
#include "platform/OutputSet.h"
#include "support/Errors.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace vexlator::platform {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

std::set<std::string> Names(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().string());
    return names;
}

void Fill(OutputSet& set, const std::string& folder) {
    set.Add(folder + "/b").Write("new b");
    set.Add(folder + "/c").Write("new c");
}

TEST(OutputSet, TakesTheFolderInOneStep) {
    TempFolder top;
    std::string folder = top / "map";
    top.Write("map/a", "old a");
    top.Write("map/b", "old b");
    ::chmod(folder.c_str(), 0750);
    ino_t before = [&] {
        struct stat info {};
        ::stat(folder.c_str(), &info);
        return info.st_ino;
    }();
    OutputSet set;
    Fill(set, folder);
    ASSERT_TRUE(set.CommitAsFolder(folder, {"a", "b"}));
    EXPECT_EQ(Names(folder), (std::set<std::string>{"b", "c"}));
    EXPECT_EQ(TempFolder::Read(folder + "/b"), "new b");
    EXPECT_EQ(Names(top.Path()), std::set<std::string>{"map"}) << "nothing is left beside it";
    struct stat info {};
    ::stat(folder.c_str(), &info);
    EXPECT_NE(info.st_ino, before);
    EXPECT_EQ(info.st_mode & 0777U, 0750U);
}

TEST(OutputSet, LeavesFoldersThatHoldMoreOrAreNoPlainFolders) {
    struct Case {
        std::string what;
        std::function<void(const TempFolder&)> prepare;
    } cases[] = {{"another file", [](const TempFolder& top) { top.Write("map/photo.jpg", "kept"); }},
                 {"a folder", [](const TempFolder& top) { fs::create_directory(top / "map/inner"); }},
                 {"a link", [](const TempFolder& top) {
                      fs::rename(top / "map", top / "elsewhere");
                      fs::create_directory_symlink(top / "elsewhere", top / "map");
                  }}};
    for (const auto& [what, prepare] : cases) {
        SCOPED_TRACE(what);
        TempFolder top;
        top.Write("map/b", "old b");
        prepare(top);
        std::set<std::string> before = Names(top / "map"), beside = Names(top.Path());
        OutputSet set;
        set.Add(top / "map/b").Write("of two the later stays");
        Fill(set, top / "map");
        EXPECT_FALSE(set.CommitAsFolder(top / "map", {"b"}));
        EXPECT_EQ(TempFolder::Read(top / "map/b"), "old b");
        EXPECT_EQ(Names(top.Path()), beside);
        set.Commit();
        before.insert("c");
        EXPECT_EQ(TempFolder::Read(top / "map/b"), "new b");
        EXPECT_EQ(Names(top / "map"), before);
    }
}

TEST(OutputSet, AbandonedFoldersOfASwapGo) {
    TempFolder top;
    top.Write(".map.1-0.vxtmp/map.GRP", "half");
    // Killed after the swap. Another program had put a photo into the folder just before.
    top.Write(".plan.1-0.vxtmp/.replaced.vxtmp", std::string("plan\0plan.GRP\0", 14));
    top.Write(".plan.1-0.vxtmp/plan.GRP", "old");
    top.Write(".plan.1-0.vxtmp/photo.jpg", "theirs");
    top.Write("plan/plan.GRP", "new");
    RemoveLeftovers(top.Path());
    EXPECT_EQ(Names(top.Path()), std::set<std::string>{"plan"});
    EXPECT_EQ(Names(top / "plan"), (std::set<std::string>{"photo.jpg", "plan.GRP"}));
    EXPECT_EQ(TempFolder::Read(top / "plan/plan.GRP"), "new");
}

TEST(OutputSet, AFailureBringsTheOldFilesBack) {
    TempFolder folder;
    folder.Write("a", "old a");
    folder.Write("b", "old b");
    folder.Write("C", "old c");
    OutputSet set;
    set.Add(folder / "a").Write("new a");
    set.Add(folder / "new").Write("new");
    Fill(set, folder.Path());
    fs::remove(folder / "b");
    fs::create_directory(folder / "b");
    EXPECT_EQ(test::ErrorOf<WriteError>([&] { set.Commit(); }),
              folder / "b" + ": Is a directory; all files are unchanged");
    EXPECT_EQ(TempFolder::Read(folder / "a"), "old a");
    EXPECT_EQ(TempFolder::Read(folder / "C"), "old c");
    EXPECT_EQ(ListFiles(folder.Path()), (std::vector<std::string>{"a", "C"}));
}

/// The leftovers of a killed run with the set a, b (which had no old file), c, after the first had moved.
struct KilledRun {
    std::string what, a, b, c;           ///< state afterwards
    std::string lastTexts = "whole 0|";  ///< text of the list; | stands for NUL
    std::function<void(const TempFolder&)> meanwhile = [](const TempFolder&) {};
    std::string told = {};
};

TEST(OutputSet, TheNextRunEndsTheMoveOfAKilledOne) {
    auto overwrite = [](const std::string& name) {
        return [name](const TempFolder& folder) { folder.Write(name, "theirs"); };
    };
    const std::string came =
        ": is newer than a run that was killed while it replaced files here. This file stays. "
        "The files of that run are removed";
    const KilledRun cases[] = {
        {"finished", "new", "new", "new"},
        {"the list never became whole", "new", "", "old", ""},
        {"was being undone", "old", "", "old", "whole 0|undone|"},
        {"has lost a file", "old", "", "old", "whole 0|",
         [](const TempFolder& folder) { fs::remove(folder / ".c.1-2.vxtmp"); }},
        {"somebody took a file after all were in place", "new", "new", "", "whole 0|",
         [](const TempFolder& folder) {
             fs::rename(folder / ".b.1-1.vxtmp", folder / "b");
             fs::remove(folder / ".a.old.1-3.vxtmp");
             fs::remove(folder / ".c.1-2.vxtmp");
             fs::remove(folder / "c");
         }},
        {"somebody wrote over the new file", "theirs", "", "old", "whole 0|", overwrite("a"), "/a" + came},
        {"somebody put a file where none was", "old", "theirs", "old", "whole 0|", overwrite("b"),
         "/b" + came},
        {"somebody wrote over an old file", "old", "", "theirs", "whole 0|", overwrite("c"), "/c" + came}};
    for (const KilledRun& run : cases) {
        SCOPED_TRACE(run.what);
        TempFolder folder;
        auto mark = [&](const std::string& name) {
            FileMark of = MarkOf(folder / name);
            return std::to_string(of.number) + " " + std::to_string(of.size) + " " +
                   std::to_string(of.seconds) + " " + std::to_string(of.nanoseconds) + "|";
        };
        for (const char* name : {"a", ".b.1-1.vxtmp", ".c.1-2.vxtmp"}) folder.Write(name, "new");
        for (const char* name : {".a.old.1-3.vxtmp", "c"}) folder.Write(name, "old");
        std::string list = ".a.1-0.vxtmp|a|.a.old.1-3.vxtmp|" + mark("a") + mark(".a.old.1-3.vxtmp") +
                           ".b.1-1.vxtmp|b||" + mark(".b.1-1.vxtmp") + mark("b") +
                           ".c.1-2.vxtmp|c|.c.old.1-4.vxtmp|" + mark(".c.1-2.vxtmp") + mark("c") +
                           run.lastTexts;
        std::replace(list.begin(), list.end(), '|', '\0');
        folder.Write(".set.vxtmp", list);
        run.meanwhile(folder);
        EXPECT_EQ(RemoveLeftovers(folder.Path()), run.told.empty() ? "" : folder.Path() + run.told);
        EXPECT_EQ(TempFolder::Read(folder / "a"), run.a);
        EXPECT_EQ(TempFolder::Read(folder / "b"), run.b);
        EXPECT_EQ(TempFolder::Read(folder / "c"), run.c);
        EXPECT_EQ(Names(folder.Path()).size(), (run.b.empty() ? 2U : 3U) - (run.c.empty() ? 1U : 0U))
            << "nothing temporary is left";
    }
}

}  // namespace
}  // namespace vexlator::platform
