// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Support.h"
#include "support/Errors.h"

#include <gtest/gtest.h>
#include <sstream>

using namespace vexlator;
using namespace vexlator::background;
using namespace vexlator::test;

namespace {

/// "" if the package is valid, else the error.
std::string FaultOf(const std::string& file) {
    return ErrorOf([&] { ProvePackage(PackageReader(file)); });
}

/// The bytes of a worked dump: each line has an offset, bytes and, after ";", a remark.
std::string DumpedBytes(const std::string& document, const std::string& title) {
    std::size_t start = document.find(title);
    start = document.find("```\n", start) + 4;
    std::istringstream lines(document.substr(start, document.find("```", start) - start));
    std::string bytes;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line.substr(0, line.find(';')));
        std::string word;
        words >> word;
        EXPECT_EQ(std::stoul(word, nullptr, 16), bytes.size()) << line;
        while (words >> word) bytes += static_cast<char>(std::stoul(word, nullptr, 16));
    }
    return bytes;
}

}  // namespace

TEST(Reader, ProvesRandomPackages) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        Build build;
        build.writer.SetDefaultTileSize(seed % 2 ? 250 : 300 + seed * 200);
        WriteRandom(build.writer, seed, 500);
        EXPECT_EQ(FaultOf(build.file), "") << seed;
    }
}

/// The dumps in docs/package-format.md are the bytes of the writer.
TEST(Reader, DocumentedPackageIsTheOneWritten) {
    std::string document = TempFolder::Read(VEXLATOR_SOURCE "/docs/package-format.md");
    Build build;
    WriteExample(build.writer);
    for (const char* extension : {"GRP", "BAG", "LAY", "GAZ"})
        EXPECT_EQ(DumpedBytes(document, "`MAP." + std::string(extension) + "`:"), build.Read(extension))
            << extension;
    PackageCounts counts = build.Prove();
    EXPECT_EQ(counts.areas + counts.texts + counts.points + counts.lines, 4U);
}

TEST(Reader, DamageIsAnErrorOrAConsistentPackage) {
    Build build;
    WriteExample(build.writer);
    std::size_t faults = 0, bytes = 0;
    for (const char* extension : {"GRP", "BAG", "GAZ"}) {
        std::string name = "MAP." + std::string(extension), whole = build.Read(extension);
        for (std::size_t i = 0; i < whole.size(); ++i) {
            std::string damaged = whole;
            damaged[i] = static_cast<char>(damaged[i] ^ (i % 2 == 0 ? 0x01 : 0xFF));
            build.folder.Write(name, damaged);
            faults += FaultOf(build.file).empty() ? 0 : 1;
            ++bytes;
        }
        for (std::size_t size = 1; size < whole.size(); size += 3) {
            build.folder.Write(name, whole.substr(0, size));
            EXPECT_NE(FaultOf(build.file), "") << name << " cut at " << size;
        }
        build.folder.Write(name, whole);
    }
    EXPECT_EQ(FaultOf(build.file), "");
    EXPECT_GT(faults, bytes * 8 / 10) << "what stays unseen is keys, classes and texts";
}

TEST(Reader, FaultsAreNamed) {
    Build build;
    WriteExample(build.writer);
    std::string bag = build.Read("BAG"), grp = build.Read("GRP");
    std::size_t area = static_cast<std::size_t>(Number<std::int32_t>(bag, 20));
    auto fault = [&](std::size_t offset, const std::string& bytes) {
        std::string damaged = bag;
        damaged.replace(offset, bytes.size(), bytes);
        build.folder.Write("MAP.BAG", damaged);
        return FaultOf(build.file);
    };
    std::string file = build.folder / "MAP.BAG: byte ", tile = "209300724A.PMM: ";
    std::size_t reference = area + 41 + 14 + 34;
    struct {
        std::size_t offset;
        std::string bytes, expected;
    } cases[] = {
        {24, I32(1 << 30),
         file + "24: 1073741824 bytes announced, " + std::to_string(bag.size() - area) + " bytes left"},
        {area + 41 + 14 + 32, I16(9000),
         file + std::to_string(area + 41 + 14 + 32) + ": " + tile + "9000 rings announced, 18 bytes left"},
        {reference + 10, I32(42),
         file + std::to_string(reference + 10) + ": " + tile + "no line begins at byte 42 of the tile"},
        {reference + 14, I32(42),
         file + std::to_string(reference + 14) + ": " + tile + "there is no tile 42"},
        {bag.size(), "x", file + std::to_string(bag.size()) + ": bytes after the last member"},
        {28 + 9, "A", file + "0: 209300724A.PMM occurs twice"},
        {reference + 2, I32(1),
         file + std::to_string(reference + 2) + ": " + tile + "the keys differ from those of the line"},
    };
    for (const auto& [offset, bytes, expected] : cases) EXPECT_EQ(fault(offset, bytes), expected);
}

/// Damage with valid offsets and counts.
TEST(Reader, RecordsThatSayWhatCannotBeAreFound) {
    Build build;
    build.writer.WriteTextElement({{523451, 181231}, 2.5, 0, -1}, "Mill");
    build.writer.Feature() = {0, 1, 255, 0, 2};
    build.writer.WriteLineElement(
        Points{{523450, 181230}, {523460, 181230}, {523460, 181240.5}, {523450, 181230}});
    build.writer.WriteAreaRing();
    build.writer.WriteLineElement(Points{{523455, 181235}});
    for (const char* name : {"0", "HOUSE"}) build.writer.Layers().AddLayer(name);
    build.writer.Commit();
    ASSERT_EQ(FaultOf(build.file), "");
    std::string bag = build.Read("BAG");
    auto inTile = [&](std::size_t number, std::size_t offset) {
        return static_cast<std::size_t>(Number<std::int32_t>(bag, number * 28 + 20)) + 41 + offset;
    };
    std::size_t point = inTile(1, 44);
    struct {
        const char* extension;
        std::size_t offset;
        std::string bytes, expected;
    } cases[] = {
        {"BAG", point + 5, I32(2), "L.PMM: key 2, but the layer file has 2 records"},
        {"BAG", point + 9, I16(25), "L.PMM: length 25 is not that of a text"},
        {"BAG", inTile(0, 9), I16(0), "A.PMM: the length differs from that of its ring"},
        {"BAG", inTile(1, 42), I16(-1000), "A.PMM: the ring is not closed"},
        {"BAG", inTile(2, 30), I16(0), "T.PMM: a text of height 0"},
        {"LAY", 1, ", ", "L.PMM: key 1, but the layer file has 1 record"},
        {"LAY", 1, " \n", "line 1: the line does not end in CR LF"},
    };
    for (const auto& [extension, offset, bytes, expected] : cases) {
        std::string name = "MAP." + std::string(extension), whole = build.Read(extension);
        build.folder.Write(name, std::string(whole).replace(offset, bytes.size(), bytes));
        EXPECT_TRUE(FaultOf(build.file).ends_with(expected)) << FaultOf(build.file);
        build.folder.Write(name, whole);
    }
}
