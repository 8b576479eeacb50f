// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Support.h"
#include "background/package/Mosaic.h"
#include "platform/Files.h"

#include <gtest/gtest.h>

using namespace vexlator;
using namespace vexlator::background;
using namespace vexlator::test;

namespace {

void WritePackage(const TempFolder& folder, const std::string& name, double x) {
    TestUi ui;
    std::filesystem::create_directory(folder / name);
    PackageWriter writer(folder / (name + "/" + name + ".GRP"), ui);
    writer.WriteLineElement(Points{{x, 100}});
    writer.Commit();
}

}  // namespace

TEST(Mosaic, LongNamesAreShortened) {
    struct {
        const char *name, *expected;
    } cases[] = {
        {"short-of-it_1", "short-of-it_1"},
        {"survey-tq2080-2024", "tq2080"},
        {"survey-tq2080-2024_07", "tq2080_07"},
        {"survey-tq_2080-2024_07", "tq_2080"},
        {"tq2080_aerialsurvey", "tq2080"},
        {"tq_080_aerialsurvey", "tq"},
        {"tq20801_aerialsurvey", "tq20801_aerialsurvey"},
        {"survey--aerialsurvey", "survey--aerialsurvey"},
    };
    for (auto [name, expected] : cases) EXPECT_EQ(ShortPackageName(name), expected);
}

TEST(Mosaic, CoversThePackagesBelowIt) {
    TempFolder folder;
    TestUi ui;
    WritePackage(folder, "mm1", 100);
    WritePackage(folder, "other", 900);
    WritePackage(folder, "tq2080_aerialsurvey", 400);
    WritePackage(folder, ".hidden", 5);
    std::filesystem::create_directory(folder / "mmempty");
    folder.Write("mmbad/mmbad.GRP", "cut");
    std::string set = folder / "SET.GRP";
    EXPECT_EQ(BuildMosaicIndex(set, false, ui), 3U);
    EXPECT_EQ(ui.messages.size(), 1U);
    PackageReader mosaic(set);
    PackageCounts counts = ProvePackage(mosaic);
    EXPECT_EQ(counts.packages, 3U);
    EXPECT_EQ(counts.points, 3U);
    EXPECT_EQ(mosaic.Entries()[2].name, "tq2080.GRP");
    EXPECT_EQ(+mosaic.Extents().minX, 100);
    EXPECT_EQ(+mosaic.Extents().maxX, 900);
    EXPECT_TRUE(platform::FileExists(folder / "tq2080/tq2080.BAG"));

    EXPECT_EQ(BuildMosaicIndex(folder.Path() + "/", true, ui), 1U);
    std::string named = folder / (std::filesystem::path(folder.Path()).filename().string() + ".GRP");
    EXPECT_EQ(ProvePackage(PackageReader(named)).packages, 1U);
}

TEST(Mosaic, NothingBelowLeavesNoIndex) {
    TempFolder folder;
    TestUi ui;
    folder.Write("SET.GRP", "old");
    EXPECT_EQ(BuildMosaicIndex(folder / "SET.GRP", false, ui), 0U);
    EXPECT_FALSE(platform::FileExists(folder / "SET.GRP"));
}

TEST(Mosaic, TakenShortNameKeepsTheLongOne) {
    TempFolder folder;
    TestUi ui;
    WritePackage(folder, "tq2080", 100);
    WritePackage(folder, "tq2080_aerialsurvey", 400);
    EXPECT_EQ(BuildMosaicIndex(folder / "SET.GRP", false, ui), 2U);
    EXPECT_EQ(ui.messages.size(), 1U);
    EXPECT_TRUE(platform::FileExists(folder / "tq2080_aerialsurvey/tq2080_aerialsurvey.BAG"));
}
