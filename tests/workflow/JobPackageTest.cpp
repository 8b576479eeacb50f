// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Errors.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"
#include "workflow/JobPackage.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <sys/resource.h>
#include <vector>

namespace vexlator::workflow {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class JobPackageTest : public testing::Test {
protected:
    void Zip(const std::string& pattern = "*.*") {
        frmZip2(session_).ZipJobFolder(folder_ / "Survey\\" + pattern);
    }
    std::string Archive() const { return folder_ / "Survey/Survey.ZIP"; }
    /// What a shell command prints, by lines; the command must succeed.
    static Texts Lines(const std::string& command) {
        Texts lines;
        FILE* pipe = ::popen(("LC_ALL=C.UTF-8 " + command).c_str(), "r");
        std::array<char, 1000> line{};
        while (std::fgets(line.data(), line.size(), pipe)) {
            lines.emplace_back(line.data());
            lines.back().pop_back();
        }
        EXPECT_EQ(::pclose(pipe), 0) << command;
        return lines;
    }
    /// Names in the archive, after every entry has been read by another program.
    Texts Entries() const {
        Lines("unzip -tq " + Archive());
        return Lines("zipinfo -1 " + Archive());
    }

    test::TempFolder folder_;
    test::TestUi ui_;
    config::Session session_{ui_};
};

TEST_F(JobPackageTest, HoldsTheFolderAndNeverItself) {
    std::string large;
    for (std::uint64_t i = 0; large.size() < 1'000'000; ++i) large += std::to_string(i * 7919);
    folder_.Write("Survey/FENCE.SHP", large);
    folder_.Write("Survey/empty.txt", "");
    folder_.Write("Survey/Größe Ж.DBF", "x");
    folder_.Write("Survey/MissingPhotos.LST", "none");
    folder_.Write("Survey/Photos/Tag 1/a.JPG", "jpg");
    folder_.Write("Survey/survey.zip", "an archive of another letter case");
    folder_.Write("Survey/.FENCE.SHP.1-1.vxtmp", "unfinished");
    folder_.Write("secret.txt", "outside");
    folder_.Write("outside/photo.JPG", "outside");
    fs::create_symlink("../secret.txt", folder_ / "Survey/link.txt");
    fs::create_symlink("../outside", folder_ / "Survey/linked");
    fs::create_symlink("..", folder_ / "Survey/Photos/loop");

    const Texts expected{"empty.txt", "FENCE.SHP", "Größe Ж.DBF", "MissingPhotos.LST", "Photos/Tag 1/a.JPG"};
    Zip();
    EXPECT_EQ(Entries(), expected);
    EXPECT_FALSE(fs::exists(folder_ / "Survey/survey.zip"));
    std::string first = test::TempFolder::Read(Archive());
    Zip();
    EXPECT_EQ(Entries(), expected);
    EXPECT_EQ(test::TempFolder::Read(Archive()), first);
    EXPECT_LT(first.size(), large.size());

    Lines("cd " + folder_.Path() + " && mkdir out && unzip -q Survey/Survey.ZIP -d out");
    EXPECT_EQ(test::TempFolder::Read(folder_ / "out/FENCE.SHP"), large);
    EXPECT_EQ(test::TempFolder::Read(folder_ / "out/Größe Ж.DBF"), "x");
    EXPECT_LE(
        fs::last_write_time(folder_ / "out/FENCE.SHP") - fs::last_write_time(folder_ / "Survey/FENCE.SHP"),
        std::chrono::seconds(2));
}

TEST_F(JobPackageTest, TakesTheFilesOfThePattern) {
    folder_.Write("Survey/a.shp", "1");
    folder_.Write("Survey/a.dbf", "2");
    folder_.Write("Survey/sub/b.shp", "3");
    Zip("*.SHP");
    EXPECT_EQ(Entries(), Texts{"a.shp"});
    Zip("*.none");
    EXPECT_EQ(Entries(), Texts{"a.shp"}) << "nothing to pack leaves the old archive";
}

/// Lets no file grow beyond `bytes` while it lives, as a full disk would.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &old_);
        rlimit small{bytes, old_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~SmallDisk() {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit old_{};
    void (*handler_)(int);
};

TEST_F(JobPackageTest, AFullDiskLeavesTheOldArchive) {
    folder_.Write("Survey/a.txt", "1");
    Zip();
    std::string old = test::TempFolder::Read(Archive()), noise(3'000'000, ' ');
    std::minstd_rand random(7);
    for (char& c : noise) c = static_cast<char>(random() >> 8);
    folder_.Write("Survey/noise.bin", noise);
    {
        SmallDisk full(500'000);
        try {
            Zip();
            ADD_FAILURE() << "no error";
        } catch (const platform::WriteError& error) {
            EXPECT_EQ(error.File(), Archive());
        }
    }
    EXPECT_EQ(test::TempFolder::Read(Archive()), old);
    Texts names = Lines("ls -A " + (folder_ / "Survey"));
    EXPECT_EQ(names.size(), 3U) << "an unfinished archive stayed";
}

}  // namespace vexlator::workflow
