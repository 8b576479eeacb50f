// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/OutputSet.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>

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
    RemoveLeftovers(top.Path());
    EXPECT_TRUE(Names(top.Path()).empty());
}

}  // namespace
}  // namespace vexlator::platform
