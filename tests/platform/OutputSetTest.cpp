// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
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
    // Killed after the swap; somebody had put a photo into the folder just before.
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
              folder / "b" + ": Is a directory; all files are as they were");
    EXPECT_EQ(TempFolder::Read(folder / "a"), "old a");
    EXPECT_EQ(TempFolder::Read(folder / "C"), "old c");
    EXPECT_EQ(ListFiles(folder.Path()), (std::vector<std::string>{"a", "C"}));
}

/// What a run that was killed leaves of the set a, b (which had no old file), c, after the first had moved.
struct KilledRun {
    std::string what, lastTexts;
    bool isInTheWay;
    std::string a, b, c;
    bool isTaken = false;  ///< somebody removed a temporary file
};

TEST(OutputSet, TheNextRunEndsTheMoveOfAKilledOne) {
    const std::string whole("whole\0", 6), undone("whole\0undone\0", 13);
    const KilledRun cases[] = {{"finished", whole, false, "new", "new", "new"},
                               {"cannot be finished", whole, true, "old", "", ""},
                               {"has lost a file", whole, false, "old", "", "old", true},
                               {"was being undone", undone, false, "old", "", "old"},
                               {"the list never became whole", "", false, "new", "", "old"}};
    for (const KilledRun& run : cases) {
        SCOPED_TRACE(run.what);
        TempFolder folder;
        folder.Write("a", "new");
        folder.Write(".a.1-0.old.vxtmp", "old");
        folder.Write(".b.1-1.vxtmp", "new");
        folder.Write(".c.1-2.vxtmp", "new");
        if (run.isInTheWay)
            fs::create_directory(folder / "c");
        else
            folder.Write("c", "old");
        auto numberOf = [&](const std::string& name) {
            struct stat info {};
            ::stat((folder / name).c_str(), &info);
            return std::to_string(info.st_ino);
        };
        std::string list = ".a.1-0.vxtmp|a|.a.1-0.old.vxtmp|" + numberOf("a") + "|.b.1-1.vxtmp|b||" +
                           numberOf(".b.1-1.vxtmp") + "|.c.1-2.vxtmp|c|.c.1-2.old.vxtmp|" +
                           numberOf(".c.1-2.vxtmp") + "|";
        if (run.isTaken) fs::remove(std::string(folder / ".c.1-2.vxtmp"));
        std::replace(list.begin(), list.end(), '|', '\0');
        folder.Write(".set.vxtmp", list + run.lastTexts);
        RemoveLeftovers(folder.Path());
        EXPECT_EQ(TempFolder::Read(folder / "a"), run.a);
        EXPECT_EQ(TempFolder::Read(folder / "b"), run.b);
        if (!run.isInTheWay) {
            EXPECT_EQ(TempFolder::Read(folder / "c"), run.c);
        }
        EXPECT_FALSE(fs::exists(folder / ".set.vxtmp"));
        EXPECT_FALSE(fs::exists(folder / ".c.1-2.vxtmp"));
    }
}

}  // namespace
}  // namespace vexlator::platform
