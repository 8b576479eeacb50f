// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Files.h"
#include "platform/Signals.h"
#include "support/Errors.h"
#include "support/Processes.h"
#include "support/TempFolder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vexlator::platform {
namespace {

using test::TempFolder;

std::size_t Entries(const TempFolder& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.Path()), {}));
}

TEST(OutputFile, BytesStayInOrderWhateverTheirSizes) {
    TempFolder folder;
    std::string expected;
    OutputFile file(folder / "a");
    for (std::size_t size : {100UL, 600'000UL, 7UL, 1'000'000UL, 1UL, 2'000'000UL, 524'288UL, 3UL}) {
        std::string part(size, static_cast<char>('a' + expected.size() % 26));
        file.Write(part);
        expected += part;
        EXPECT_EQ(file.Size(), expected.size());
    }
    char* room = file.Reserve(OutputFile::BufferSize);
    std::fill_n(room, 5, 'R');
    file.Advance(5);
    expected += "RRRRR";
    file.WriteAt(99, "!!");
    expected.replace(99, 2, "!!");
    OutputFile moved = std::move(file);
    moved.Write("end");
    moved.Commit();
    EXPECT_TRUE(TempFolder::Read(folder / "a") == expected + "end");
}

TEST(OutputFile, ReplacesTheNameInAnyCase) {
    TempFolder folder;
    folder.Write("A.SHP", "old");
    folder.Write("a.shx", "other");
    ReplaceFile(folder / "a.shp", "new");
    EXPECT_EQ(ListFiles(folder.Path()), (std::vector<std::string>{"a.shp", "a.shx"}));
    EXPECT_EQ(TempFolder::Read(folder / "a.shp"), "new");
}

TEST(OutputFile, KeepsRightsAndLinks) {
    TempFolder folder;
    std::string real = folder.Write("real", "old");
    ::chmod(real.c_str(), 0640);
    std::filesystem::create_symlink("real", folder / "link");
    ReplaceFile(folder / "link", "new");
    EXPECT_EQ(TempFolder::Read(real), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    struct stat info {};
    ::stat(real.c_str(), &info);
    EXPECT_EQ(info.st_mode & 0777U, 0640U);
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(real.c_str(), 1234, 2345), 0);
        ::chmod(real.c_str(), 02750);
        ReplaceFile(real, "newer");
        ::stat(real.c_str(), &info);
        EXPECT_EQ(info.st_uid, 1234U);
        EXPECT_EQ(info.st_gid, 2345U);
        EXPECT_EQ(info.st_mode & 07777U, 02750U);
    }
    ::chmod(folder.Path().c_str(), 01777);
    EXPECT_THROW(ReplaceFile(folder / "link", "through"), WriteError) << "anybody may have made the link";
    std::filesystem::create_directory_symlink(".", folder / "inner");
    EXPECT_THROW(ReplaceFile(folder / "inner/real", "through"), WriteError);
    EXPECT_THROW(AppendToFile(folder / "link", "through"), WriteError);
    EXPECT_EQ(TempFolder::Read(real).substr(0, 3), "new");
}

TEST(OutputFile, FullDiskLeavesTheOldFile) {
    TempFolder folder;
    std::string path = folder.Write("a.shp", "old");
    std::string error = test::ErrorOf<WriteError>([&] {
        test::SmallDisk full(1'500'000);
        OutputFile file(path);
        for (int i = 0; i < 40; ++i) file.Write(std::string(50'000, 'x'));
        file.Commit();
    });
    EXPECT_TRUE(error.starts_with(path + ": ")) << error;
    EXPECT_EQ(TempFolder::Read(path), "old");
    EXPECT_EQ(Entries(folder), 1U);
}

TEST(OutputFile, LeftoversOfKilledRunsGoThoseOfLiveOnesStay) {
    TempFolder folder;
    std::array<int, 2> ready{};
    ASSERT_EQ(::pipe(ready.data()), 0);
    pid_t child = ::fork();
    if (child == 0) {
        OutputFile file(folder / "killed.shp");
        file.Write("half");
        [[maybe_unused]] auto told = ::write(ready[1], "x", 1);
        ::pause();
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    OutputFile live(folder / "live.shp");
    RemoveLeftovers(folder.Path());
    EXPECT_EQ(Entries(folder), 2U) << "both still run";
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(ListFiles(folder.Path()).empty()) << "no listing shows them";
    RemoveLeftovers(folder.Path());
    EXPECT_EQ(Entries(folder), 1U);
    live.Commit();
    EXPECT_TRUE(FileExists(folder / "live.shp"));
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST(OutputFile, CleaningAndWritingAtOnce) {
    TempFolder folder;
    pid_t child = ::fork();
    if (child == 0)
        for (;;) RemoveLeftovers(folder.Path());
    for (int i = 0; i < 200; ++i)
        ASSERT_NO_THROW(OutputFile(folder / "a", OutputFile::OtherCases::Keep).Commit());
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

TEST(MappedFile, ShortenedWhileItIsRead) {
    TempFolder folder;
    std::string path = folder.Write("file", std::string(1 << 20, 'x'));
    auto readOn = [&] {
        HandleFileSignals();
        MappedFile file(path);
        if (::truncate(path.c_str(), 0) != 0) return;
        std::exit(file.Text()[1 << 19]);
    };
    EXPECT_EXIT(readOn(), testing::ExitedWithCode(1), "Another program shortened a file");
}

TEST(MappedFile, OnlyRegularFiles) {
    TempFolder folder;
    EXPECT_EQ(MappedFile(folder.Write("empty", "")).Text(), "");
    EXPECT_EQ(MappedFile(folder.Write("Some.TXT", "bytes")).Text(), "bytes");
    EXPECT_EQ(MappedFile(folder / "sOME.txt").Name(), folder / "Some.TXT");
    ::mkfifo((folder / "pipe").c_str(), 0600);
    std::pair<std::string, std::string> const cases[] = {{folder / "none", "No such file or directory"},
                                                         {folder.Path(), "is not a file"},
                                                         {folder / "pipe", "is not a file"}};
    for (const auto& c : cases)
        EXPECT_EQ(test::ErrorOf([&] { MappedFile file(c.first); }), c.first + ": " + c.second);
}

TEST(Files, WholeFiles) {
    TempFolder folder;
    std::string large(3'000'000, 'x');
    large[2'500'000] = 'y';
    folder.Write("large", large);
    EXPECT_TRUE(ReadWholeFile(folder / "LARGE") == large);
    CopyWholeFile(folder / "Large", folder / "copy");
    EXPECT_TRUE(TempFolder::Read(folder / "copy") == large);
    CopyWholeFile(folder / "copy", folder / "COPY");
    EXPECT_EQ(SizeOfFile(folder / "copy"), large.size()) << "a copy on itself loses nothing";
    AppendToFile(folder / "log", "a");
    AppendToFile(folder / "LOG", "b");
    EXPECT_EQ(TempFolder::Read(folder / "log"), "ab");
    EXPECT_THROW(AppendToFile(folder / "none/log", "a"), WriteError);
    ::mkfifo((folder / "pipe").c_str(), 0600);
    EXPECT_THROW(AppendToFile(folder / "pipe", "a"), WriteError) << "and does not wait for a reader";
    EXPECT_EQ(SizeOfFile(folder.Path()), 0U);
    EXPECT_FALSE(RenameFile(folder / "none", folder / "x"));
    EXPECT_FALSE(RenameFile(folder / "log", folder.Path()));
    EXPECT_TRUE(FileExists(folder / "log"));
}

TEST(FileLock, OneHolderAtATime) {
    TempFolder folder;
    std::string counter = folder.Write("counter", "0");
    test::RunAtOnce(4, [&](int) {
        for (int i = 0; i < 100; ++i) {
            FileLock lock(counter);
            std::string old = TempFolder::Read(counter);
            std::ofstream(counter) << std::stoi(old) + 1;
        }
        return true;
    });
    EXPECT_EQ(TempFolder::Read(counter), "400");
    EXPECT_EQ(Entries(folder), 1U);
    EXPECT_THROW(FileLock(folder / "none/x"), WriteError);
}

}  // namespace
}  // namespace vexlator::platform
