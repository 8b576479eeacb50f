// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Support.h"
#include "platform/Files.h"

#include <gtest/gtest.h>

using namespace vexlator;
using namespace vexlator::background;
using namespace vexlator::test;

namespace {

std::string IndexRecord(std::string_view name, int kind, double minX, double minY, double maxX, double maxY) {
    std::string bytes;
    for (char c : name) bytes += {c, '\0'};
    if (!name.empty()) bytes.append(2, '\0');
    bytes.resize(40, ' ');
    return bytes + I16(kind) + std::string(6, '\0') + F64(minX) + F64(minY) + F64(0) + F64(maxX) + F64(maxY) +
           F64(0);
}

std::string Entry(std::string name, int offset, int length) {
    name += '\0';
    name.resize(20, ' ');
    return name + I32(offset) + I32(length);
}

}  // namespace

TEST(Package, EmptyOneHasOnlyAHeader) {
    Build build;
    build.writer.Commit();
    EXPECT_EQ(build.Read("GRP"), IndexRecord("", 0, 9999999999, 9999999999, -9999999999, -9999999999));
    EXPECT_EQ(platform::ListFiles(build.folder.Path()), (std::vector<std::string>{"MAP.BAG", "MAP.GRP"}));
    EXPECT_EQ(build.Read("BAG"), "");
    EXPECT_EQ(build.Prove().tiles, 0U);
}

TEST(Package, IndexHasAreasTextsLinesAndTheContainerAllByName) {
    Build build;
    Points ring = {{300, 600}, {310, 600}, {310, 610}, {300, 600}};
    build.writer.WriteLineElement(Points{{2600, 600}});
    build.writer.WriteLineElement(ring);
    build.writer.WriteAreaRing();
    build.writer.WriteTextElement({{300, 600}, 1, 0, 2}, "T");
    build.writer.WriteLineElement(Points{{260, 5100}});
    build.writer.Commit();
    EXPECT_EQ(build.Read("GRP"), IndexRecord("", 0, 260, 600, 2600, 5100) +
                                     IndexRecord("100002A.PMM", 5, 300, 600, 310, 610) +
                                     IndexRecord("100002T.PMM", 5, 300, 600, 300, 600) +
                                     IndexRecord("1000002L.PMM", 5, 2600, 600, 2600, 600) +
                                     IndexRecord("100002L.PMM", 5, 300, 600, 310, 610) +
                                     IndexRecord("100020L.PMM", 5, 260, 5100, 260, 5100));
    constexpr int directory = 5 * 28, point = 41 + 32, line = 41 + 32 + 12, area = 41 + 66, text = 41 + 35;
    EXPECT_EQ(build.Read("BAG").substr(0, directory),
              Entry("1000002L.PMM", directory, point) + Entry("100002A.PMM", directory + point, area) +
                  Entry("100002L.PMM", directory + point + area, line) +
                  Entry("100002T.PMM", directory + point + area + line, text) +
                  Entry("100020L.PMM", directory + point + area + line + text, point));
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
    EXPECT_EQ(build.Read("GRP"),
              IndexRecord("", 0, 1.5, 2, 30, 4000) + IndexRecord("100002L.PMM", 5, 300, 600, 300, 600));
    EXPECT_EQ(build.Prove().points, 1U);
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

TEST(LayerFile, HeaderLineIsForAnEmptyFileOnly) {
    Build build;
    build.writer.Layers().AddLayer("ROAD");
    std::vector<std::string_view> values;
    build.writer.Layers().AddListed({6, "6,X"}, values);
    build.writer.Commit();
    EXPECT_EQ(build.Read("LAY"), "ROAD\r\n    \r\n");
}

TEST(Gazetteer, OneLinePerValueCoversAllItsFeatures) {
    Build build;
    Gazetteer& search = build.writer.Search();
    search.Add("b", {100.9, 200, 110, 204});
    search.Add("Z\xC3\xBC", {0, 0, 9.9, 1});
    search.Add("a,\n1", {10, 10, 10, 10});
    search.Add("b", {1100, 200, 1110, 204});
    build.writer.Commit();
    // 105,202 of size 9 and 1105,202 of size 10 lie in 100.5 to 1110.
    EXPECT_EQ(build.Read("GAZ"), "Z\xFC,4,0,9\r\na, 1,10,10,0\r\nb,605,202,1009\r\n");
    EXPECT_EQ(build.Prove().searchValues, 3U);
}
