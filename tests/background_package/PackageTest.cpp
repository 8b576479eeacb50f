// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Support.h"
#include "platform/Files.h"

#include <gtest/gtest.h>

using namespace vexlator;
using namespace vexlator::background;
using namespace vexlator::test;

TEST(Package, IndexHasAreasTextsLinesAndTheContainerAllByName) {
    Build build;
    Points ring = {{300, 600}, {310, 600}, {310, 610}, {300, 600}};
    build.writer.WriteLineElement(Points{{2600, 600}});
    build.writer.WriteLineElement(ring);
    build.writer.WriteAreaRing();
    build.writer.WriteTextElement({{300, 600}, 1, 0, 2}, "T");
    build.writer.WriteLineElement(Points{{260, 5100}});
    build.writer.Commit();
    std::string index, container;
    PackageReader package(build.file);
    for (const IndexEntry& entry : package.Entries()) index += entry.name + " ";
    for (const ContainedFile& file : package.Files()) container += file.name + " ";
    EXPECT_EQ(index, "100002A.PMM 100002T.PMM 1000002L.PMM 100002L.PMM 100020L.PMM ");
    EXPECT_EQ(container, "1000002L.PMM 100002A.PMM 100002L.PMM 100002T.PMM 100020L.PMM ");
}

TEST(Package, MemoryLimitDoesNotChangeAByte) {
    Build roomy, tight(1);
    WriteRandom(roomy.writer, 11, 20000);
    WriteRandom(tight.writer, 11, 20000);
    EXPECT_GT(roomy.Read("BAG").size(), std::size_t{4} << 20) << "the tight one has spilled often";
    EXPECT_TRUE(roomy.Read("BAG") == tight.Read("BAG"));
    EXPECT_TRUE(roomy.Read("GRP") == tight.Read("GRP"));
    EXPECT_GT(tight.Prove().rings, 1000U);
}

TEST(Package, OldOneStaysUntilCommitAndThenGoes) {
    TempFolder folder;
    TestUi ui;
    for (const char* name : {"map.grp", "MAP.BAG", "MAP.GAZ", "OLD.GRP", "1L.PMM", "2.pmp", "a.dat", "b.txt",
                             "MAP.BME", "photo.jpg"})
        folder.Write(name, "1,2,3,4");
    std::vector<std::string> before = platform::ListFiles(folder.Path());
    { PackageWriter(folder / "MAP.GRP", ui).WriteLineElement(Points{{5, 5}}); }
    PackageWriter writer(folder / "MAP.GRP", ui);
    writer.WriteLineElement(Points{{5, 6}});
    writer.Layers().AddLayer("L");
    EXPECT_EQ(platform::ListFiles(folder.Path()), before);
    writer.Commit();
    EXPECT_EQ(platform::ListFiles(folder.Path()),
              (std::vector<std::string>{"MAP.BAG", "MAP.GRP", "MAP.LAY", "photo.jpg"}));
    PackageReader package(folder / "MAP.GRP");
    EXPECT_EQ(+package.Extents().minX, 5) << "extents of an earlier package do not count";
}

TEST(Package, ExtentsFileOfTheBuildOverridesTheIndex) {
    Build build;
    build.writer.WriteLineElement(Points{{300, 600}});
    build.folder.Write("MAP.BME", "1.5,2,30,4000,7\r\nmore");
    build.writer.Commit();
    EXPECT_EQ(PackageReader(build.file).Extents(), (Box{1.5, 2, 30, 4000}));
}

TEST(LayerFile, ListedRecordsHaveTheirWidth) {
    Build build;
    ListedLayer roads{16, "16,NAME,CLASS"};
    std::vector<std::string_view> both = {"High St\r\n", "A"}, one = {"A much longer name"};
    EXPECT_EQ(build.writer.Layers().AddListed(roads, both), 0);
    EXPECT_EQ(build.writer.Layers().AddListed(roads, one), 1);
    EXPECT_EQ(build.writer.Layers().AddListed({2, "2,X"}, one), std::nullopt);
    std::vector<FreeAttribute> free = {{"a", "1"}, {"at", "5,5", 1010}, {"caf\xC3\xA9", "\xC5\x81", 1000}};
    EXPECT_EQ(build.writer.Layers().AddFree(free), 2);
    EXPECT_EQ(build.writer.Layers().AddFree({}), std::nullopt);
    build.writer.Commit();
    EXPECT_EQ(build.Read("LAY"), "***,16,NAM\r\nHigh St  ,A   \r\nA much longer \r\na:1,at:,caf\xE9:?\r\n");
    EXPECT_EQ(build.Prove().layerRecords, 3U);
    EXPECT_EQ(build.ui.messages.size(), 1U) << "one character was replaced";
}
