// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Errors.h"
#include "platform/Files.h"
#include "support/Errors.h"
#include "support/Installation.h"
#include "util/Text.h"
#include "workflow/JobPackage.h"
#include "workflow/ZipInput.h"

#include <cstdint>
#include <filesystem>
#include <random>
#include <vector>
#include <zip.h>

namespace vexlator::workflow {

namespace fs = std::filesystem;

/// Bytes that packing does not reduce.
std::string Noise(std::size_t size) {
    std::string noise(size, ' ');
    std::minstd_rand random(7);
    for (char& c : noise) c = static_cast<char>(random() >> 8);
    return noise;
}

using JobPackageTest = test::InstallationTest;

struct TestEntry {
    std::string name, content;
    bool isLink = false;
};

void WriteArchive(const std::string& path, const std::vector<TestEntry>& entries) {
    zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    for (const TestEntry& entry : entries) {
        zip_source_t* source = zip_source_buffer(archive, entry.content.data(), entry.content.size(), 0);
        zip_int64_t index = zip_file_add(archive, entry.name.c_str(), source, ZIP_FL_ENC_UTF_8);
        ASSERT_GE(index, 0) << entry.name;
        if (entry.isLink)
            zip_file_set_external_attributes(archive, static_cast<zip_uint64_t>(index), 0, ZIP_OPSYS_UNIX,
                                             0120777U << 16);
    }
    ASSERT_EQ(zip_close(archive), 0);
}

TEST_F(JobPackageTest, UnpacksBesideTheArchive) {
    folder.Write("Survey/Größe.DBF", "x");
    folder.Write("Survey/Photos/a.JPG", "jpg");
    frmZip2(run).ZipJobFolder(folder / "Survey\\*.*");
    fs::copy(folder / "Survey/Survey.ZIP", folder / "Job7.zip");
    folder.Write("Job7/photos/A.jpg", "jpg");
    folder.Write("Job7/other.txt", "stays");
    frmZip2(run).UnZipJobFolder(folder / "Job7.ZIP");
    EXPECT_EQ(test::TempFolder::Read(folder / "Job7/Größe.DBF"), "x");
    EXPECT_EQ(test::TempFolder::Read(folder / "Job7/photos/A.jpg"), "jpg") << "the same bytes";
    EXPECT_EQ(platform::ListFiles(folder / "Job7").size(), 2U);
}

TEST_F(JobPackageTest, RefusesHostileArchivesBeforeWriting) {
    struct Case {
        std::vector<TestEntry> entries;
        std::string reason;
    };
    Ini("[ZIP]\nMaxMB=3\n");
    std::string zeros(2'000'000, '\0'), noise = Noise(2'000'000);
    const TestEntry good{"a.txt", "1"};
    const Case cases[] = {
        {{good, {"../escaped.txt", "2"}}, "../escaped.txt: has a path that leads elsewhere"},
        {{good, {"b\\..\\..\\escaped.txt", "2"}}, "leads elsewhere"},
        {{good, {"/escaped.txt", "2"}}, "absolute"},
        {{good, {"C:\\escaped.txt", "2"}}, "absolute"},
        {{good, {"sub/", ""}, {"SUB", "2"}}, "occurs twice"},
        {{{"Sub/a.txt", "1"}, {"Sub b/x", "2"}, {"sub/b.txt", "3"}}, "occurs twice"},
        {{{"a/b/x", "1"}, good, {"a/b", "3"}}, "a/b/x: lies in a folder that is a file"},
        {{good, {std::string(300, 'n'), "2"}}, "has a name that is too long"},
        {{good, {util::ReplaceAll(std::string(30'000, 'n'), "n", "n/"), ""}}, "has a path that is too long"},
        {{good, {"link", "../..", true}, {"link/x", "2"}}, "link: is a link"},
        {{good, {"zeros", zeros}}, "more than 1000 times"},
        {{{"a.txt", noise}, {"b.txt", noise}}, "b.txt: goes beyond 3145728 bytes"},
    };
    for (const Case& c : cases) {
        WriteArchive(folder / "In.zip", c.entries);
        std::string error = test::ErrorOf([&] { frmZip2(run).UnZipJobFolder(folder / "In.zip"); });
        EXPECT_TRUE(error.starts_with(folder / "In.zip: ")) << error;
        EXPECT_NE(error.find(c.reason), std::string::npos) << error;
        EXPECT_FALSE(fs::exists(folder / "In")) << c.reason;
        EXPECT_FALSE(fs::exists(folder / "escaped.txt")) << c.reason;
    }
}

TEST_F(JobPackageTest, DamagedArchivesAreReadOrRefused) {
    std::string path = folder / "In.zip";
    WriteArchive(path, {{"new.txt", "1"}, {"sub/a.txt", std::string(5000, 'a') + "b"}});
    const std::string whole = test::TempFolder::Read(path);
    std::size_t refused = 0;
    for (std::size_t at = 0; at < whole.size(); at += 3) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x11);
        for (const std::string& bytes : {damaged, whole.substr(0, at)}) {
            folder.Write("In.zip", bytes);
            std::string error = test::ErrorOf([&] { ZipInput(path).Check(10'000); });
            EXPECT_TRUE(error.empty() || error.starts_with(path + ": ")) << error;
            refused += !error.empty();
        }
    }
    EXPECT_GT(refused, whole.size() / 3);
}

TEST_F(JobPackageTest, FailingHalfWayTakesBackWhatIsNew) {
    WriteArchive(folder / "In.zip", {{"new.txt", "1"}, {"OLD.txt", "2"}, {"sub/a.txt", "3"}});
    folder.Write("In/old.txt", "before");
    fs::create_directory(folder / "outside");
    fs::create_directory_symlink("../outside", folder / "In/sub");
    EXPECT_TRUE(test::ErrorOf<platform::WriteError>([&] {
                    frmZip2(run).UnZipJobFolder(folder / "In.zip");
                }).starts_with(folder / "In/old.txt" + ": exists already"));
    EXPECT_EQ(test::TempFolder::Read(folder / "In/old.txt"), "before");
    EXPECT_FALSE(fs::exists(folder / "In/new.txt"));
    fs::remove(folder / "In/old.txt");
    EXPECT_THROW(frmZip2(run).UnZipJobFolder(folder / "In.zip"), platform::ReadError);
    EXPECT_TRUE(fs::is_empty(folder / "outside"));
    EXPECT_FALSE(fs::exists(folder / "In/new.txt"));
}

}  // namespace vexlator::workflow
