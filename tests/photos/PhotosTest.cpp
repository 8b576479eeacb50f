// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/photos/PhotoFolders.h"
#include "export/photos/Photos.h"
#include "support/Installation.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::exporter {
namespace {

namespace fs = std::filesystem;

class Photos : public test::InstallationTest {
protected:
    Photos() {
        fs::create_directories(folder / "job");
        source = fs::canonical(folder / "job").string();
        target = fs::canonical(folder.Path()).string() + "/out";
    }
    drawing::Entity Add(const std::vector<std::string>& values) {
        drawing::Entity entity = drawing.addPoint({1, 2, 0});
        for (const std::string& value : values)
            entity.xproperties().add("A" + std::to_string(entity.xproperties().count()), value);
        return entity;
    }
    void Gather() {
        test::TempFolder elsewhere;
        drawing.saveAs(elsewhere / "Survey.VDF");
        drawing::DrawingFile file(elsewhere / "Survey.VDF");
        GatherPhotos(run, file, source, "Survey", target).ApplyTo(drawing);
    }
    std::string Out(const std::string& name) const { return test::TempFolder::Read(target + "/" + name); }
    const std::string& Missing() { return run.MissingPhotos(); }
    std::size_t FilesBelow(const std::string& path) const {
        std::size_t count = 0;
        for (const auto& entry : fs::recursive_directory_iterator(path))
            count += !fs::is_directory(entry.symlink_status());
        return count;
    }

    drawing::Drawing drawing;
    std::string source, target;
};

TEST_F(Photos, LetterCaseDoesNotCount) {
    folder.Write("job/PHOTOS/One.JPG", "one");
    folder.Write("job/two.jpg", "lower");
    folder.Write("job/Two.JPG", "exact");
    folder.Write("out/ONE.jpg", "old");
    fs::create_directories(target + "/photos");
    folder.Write("out/photos/ONE.jpg", "old");
    Add({"photos/one.jpg"});
    Add({"Photos\\ONE.JPG"});
    Add({"Two.JPG"});
    Gather();
    EXPECT_EQ(Out("photos/ONE.jpg"), "one");
    EXPECT_EQ(Out("Two.JPG"), "exact");
    EXPECT_EQ(FilesBelow(target), 3U);
    EXPECT_EQ(Missing(), "");
}

TEST_F(Photos, NamesDoNotLeadOutOfTheFolders) {
    folder.Write("secret.jpg", "secret");
    folder.Write("drives/C/secret.jpg", "secret");
    folder.Write("drives/unc/server/secret.jpg", "secret");
    folder.Write("job/sub/in.jpg", "in");
    fs::create_directory_symlink(folder.Path(), source + "/up");
    fs::create_symlink(folder / "secret.jpg", source + "/link.jpg");
    fs::create_symlink("/dev/zero", source + "/zero.jpg");
    fs::create_symlink("loop.jpg", source + "/loop.jpg");
    ::setenv("VEXLATOR_DRIVES", (folder / "drives").c_str(), 1);
    const std::string
        secret = folder / "secret.jpg",
        names = R"(..\secret.jpg|../secret.jpg|sub/../../secret.jpg|sub\..\sub\in.jpg|./sub/in.jpg|)" +
                secret +
                R"(|\secret.jpg|C:\secret.jpg|C:secret.jpg|\\server\secret.jpg|sub\\in.jpg|)"
                R"(sub/in.jpg\|sub/in.jpg:x|.. \secret.jpg|up/secret.jpg|link.jpg|zero.jpg|loop.jpg|)"
                R"(job.jpg\..\..\secret.jpg)" +
                std::string("|sub/in.jpg\0|sub\n/in.jpg", 24);
    std::size_t files = FilesBelow(folder.Path());
    for (std::size_t i = 0; i <= util::CountOf(names, "|"); ++i) {
        const std::string name(util::GetBarField(i, names));
        drawing.clear();
        Add({"first", name});
        Gather();
        std::string listed = name;
        std::ranges::replace(listed, '\0', '?');
        EXPECT_EQ(Missing(), listed + " missing from first\r\n");
    }
    EXPECT_EQ(FilesBelow(folder.Path()), files);
    ::unsetenv("VEXLATOR_DRIVES");
}

TEST_F(Photos, LinksThatStayInsideTheSourceAreFollowed) {
    folder.Write("job/2024/a.jpg", "a");
    fs::create_directory_symlink("2024", source + "/latest");
    fs::create_symlink("2024/a.jpg", source + "/b.jpg");
    fs::create_directory_symlink(source, folder / "linked");
    source = folder / "linked";
    Add({"latest/a.jpg", "b.jpg"});
    Gather();
    EXPECT_EQ(Missing(), "");
    EXPECT_EQ(Out("latest/a.jpg"), "a");
    EXPECT_EQ(Out("b.jpg"), "a");
}

TEST_F(Photos, NothingIsWrittenThroughALinkInTheTarget) {
    for (std::string name : {"a.jpg", "b.jpg", "Sub/c.jpg"}) folder.Write("job/" + name, "photo");
    std::string outside = folder.Write("outside/precious", "precious");
    fs::create_directories(target);
    fs::create_symlink(outside, target + "/A.jpg");
    fs::create_symlink(folder / "outside/new", target + "/b.jpg");
    fs::create_directory_symlink(folder / "outside", target + "/sub");
    fs::create_symlink(outside, target + "/Survey.CSV");
    Ini("[THIRD]\nSSE=1\n");
    Add({"a.jpg", "b.jpg", "Sub/c.jpg"});
    Gather();
    EXPECT_EQ(test::TempFolder::Read(outside), "precious");
    EXPECT_EQ(FilesBelow(folder / "outside"), 1U);
    EXPECT_EQ(Out("A.jpg"), "photo");
    EXPECT_FALSE(fs::is_symlink(target + "/A.jpg"));
    EXPECT_FALSE(fs::is_symlink(target + "/b.jpg"));
    EXPECT_EQ(Missing(), "Sub/c.jpg missing from a.jpg\r\n");
}

TEST_F(Photos, ACopyThatIsUpToDateIsLeftAlone) {
    folder.Write("job/same.jpg", "same");
    folder.Write("job/changed.jpg", "new!");
    folder.Write("out/same.jpg", "same");
    folder.Write("out/changed.jpg", "old!");
    auto before = fs::file_time_type::clock::now() - std::chrono::hours(1);
    fs::last_write_time(target + "/same.jpg", before);
    fs::last_write_time(target + "/changed.jpg", before);
    Add({"same.jpg", "changed.jpg"});
    Gather();
    EXPECT_EQ(fs::last_write_time(target + "/same.jpg"), before);
    EXPECT_EQ(Out("changed.jpg"), "new!");
}

TEST_F(Photos, FullPathsAndFalseTargetsGoIntoTheDrawing) {
    folder.Write("job/a.jpg", "a");
    drawing::Entity entity = Add({"first", "a.jpg", "gone.jpg"});
    auto value = [&](std::size_t i) { return std::string(entity.xproperties().item(i).value()); };
    Ini("[PHOTO]\nFullPath=1\n");
    Gather();
    EXPECT_EQ(value(0), "first");
    EXPECT_EQ(value(1), target + "/a.jpg");
    EXPECT_EQ(value(2), target + "/gone.jpg");

    drawing.clear();
    entity = Add({"sub\\a.jpg"});
    Ini("[PHOTO]\nFullPath=1\nFALSETARGET=https://example.org/photos\n");
    installation.Settings().DebugMode = true;
    Gather();
    EXPECT_EQ(value(0), "https://example.org/photos\\sub\\a.jpg");
    EXPECT_EQ(ui.messages, std::vector<std::string>{value(0)});
}

TEST_F(Photos, SettingsDirectWhereFromAndWhereTo) {
    folder.Write("job/a.jpg", "job");
    folder.Write("archive/a.jpg", "archive");
    Add({"a.jpg"});
    Ini("[PHOTO]\nDontCopy=1\n");
    Gather();
    EXPECT_EQ(Missing(), "a.jpg missing from a.jpg\r\n");
    EXPECT_EQ(FilesBelow(target), 0U);

    Ini("[PHOTO]\nFIXEDSOURCE=" + (folder / "archive") +
        "\nFixedExport=1\nFixedExportFolder=" + (folder / "web/photos") + "\n");
    Gather();
    EXPECT_EQ(Missing(), "");
    EXPECT_EQ(test::TempFolder::Read(folder / "web/photos/a.jpg"), "archive");
    EXPECT_EQ(FilesBelow(target), 0U);

    Ini("[PHOTO]\nFixedExport=1\nFixedExportFolder=" + source + "/../job\n");
    Gather();
    EXPECT_EQ(Missing(), "a.jpg missing from a.jpg\r\n");

    Ini("");
    source = "";
    fs::remove_all(target);
    Gather();
    EXPECT_FALSE(fs::exists(target));
    EXPECT_EQ(Missing(), "a.jpg missing from a.jpg\r\n");
}

TEST_F(Photos, TheListNamesEveryFeatureAndItsCopy) {
    folder.Write("job/a.jpg", "a");
    folder.Write("job/b,1.jpg", "b");
    Ini("[THIRD]\nSSE=1\n");
    Add({"1,\"2\"", "a.jpg", "gone.jpg"});
    Add({"plain", "a.jpg", "b,1.jpg"});
    Add({"\xC3\x96", "a.jpg"});
    Gather();
    EXPECT_EQ(Out("Survey.CSV"), "\"1,\"\"2\"\"\"," + target + "/a.jpg\r\nplain," + target +
                                     "/a.jpg\r\nplain,\"" + target + "/b,1.jpg\"\r\n\xD6," + target +
                                     "/a.jpg\r\n");
}

}  // namespace
}  // namespace vexlator::exporter
