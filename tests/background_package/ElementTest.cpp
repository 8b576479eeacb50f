// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Support.h"

#include <gtest/gtest.h>
#include <limits>

using namespace vexlator;
using namespace vexlator::background;
using namespace vexlator::test;
using Ring = PackageWriter::AreaRing;

namespace {

std::string PmmHeaderOf(double minX, double minY, double maxX, double maxY, double tileSize) {
    return "\x02" + F64(minX) + F64(minY) + F64(maxX) + F64(maxY) + F64(tileSize);
}

std::string Reference(int high, int low, int offset, int tile) {
    return I16(1) + I32(high) + I32(low) + I32(offset) + I32(tile);
}

const Points square = {{1000, 2000}, {1010, 2000}, {1010, 2010}, {1000, 2010}, {1000, 2000}};

}  // namespace

TEST(Elements, PointAndLineInOneTile) {
    Build build;
    build.writer.Feature() = {1, 2, 3, 4, 5};
    EXPECT_EQ(build.writer.WriteLineElement(Points{{300, 600}}), 41);
    build.writer.Feature() = {0, 9, 255, 0, 18};
    EXPECT_EQ(build.writer.WriteLineElement(Points{{310, 610}, {312.5, 608.25}}), 73);
    build.writer.Commit();
    EXPECT_EQ(build.TileFile("100002L.PMM"),
              PmmHeaderOf(300, 600, 312.5, 610, 250) +                          //
                  Header(2, 1, 2, 0, 3, 4, 5) + I16(1) + F64(300) + F64(600) +  //
                  Header(2, 0, 9, 0, 255, 0, 18) + I16(2) + F64(310) + F64(610) + I16(250) + I16(-175));
    EXPECT_EQ(build.writer.LargestCount(), 2);
}

TEST(Elements, AreaRefersToItsRings) {
    Build build;
    build.writer.Feature() = {10, 20, 3, 4, 0};
    build.writer.WriteLineElement(square);
    build.writer.WriteAreaRing();
    build.writer.Feature() = {10, 21, 3, 4, 0};
    Points hole = {{1004, 2004}, {1006, 2004}, {1006, 2006}, {1004, 2004}};
    std::int32_t offset = *build.writer.WriteLineElement(hole, true);
    EXPECT_EQ(offset, 41 + 14 + 18 + 4 * 4);
    build.writer.WriteAreaRing(Ring::JoinsArea);
    build.writer.Commit();
    std::string box = F64(1000) + F64(2000) + F64(1010) + F64(2010);
    EXPECT_EQ(build.TileFile("400008A.PMM"), "\x02" + box + F64(250) + Header(4, 10, 20, 0, 3, 4, 0) + box +
                                                 I16(2) + Reference(10, 20, 41, 400008) +
                                                 Reference(10, 21, offset, 400008));
    EXPECT_EQ(build.Prove().rings, 2U);
}

TEST(Elements, PartsOfAreasHaveTheirOwnTypes) {
    Build build;
    for (int part : {0, 7, 245, 300, -3}) {
        build.writer.WriteLineElement(square);
        build.writer.WriteAreaRing(Ring::StartsArea, part);
    }
    build.writer.Commit();
    std::string file = build.TileFile("400008A.PMM"), types;
    for (std::size_t at = 41; at < file.size(); at += 66) types += file[at];
    EXPECT_EQ(types, "\x0A\x11\xFF\xFF\x0A");
}

/// The file of areas starts at the outline's mean, like that of its line; its tile size has one step only.
TEST(Elements, LargeAreaSharesTheTileOfItsLine) {
    Build build;
    build.writer.WriteLineElement(Points{{1000, 2000}, {3000, 2000}, {3000, 4000}, {1000, 2000}});
    build.writer.WriteAreaRing();
    build.writer.Commit();
    std::string line = build.TileFile("0L.PMM"), area = build.TileFile("0A.PMM");
    EXPECT_EQ(Number<double>(line, 33), 25000);
    EXPECT_EQ(Number<double>(area, 33), 2500);
    EXPECT_EQ(area.substr(1, 32), line.substr(1, 32));
}

/// A hole takes the tile of its ring though it would fit a finer one.
TEST(Elements, HoleFollowsItsRing) {
    Build build;
    build.writer.WriteLineElement(Points{{1000, 2000}, {1200, 2000}, {1200, 2200}, {1000, 2000}});
    build.writer.WriteTextElement({{50, 50}, 1, 0, 2}, "between");
    build.writer.WriteLineElement(Points{{1010, 2010}, {1012, 2012}}, true);
    build.writer.WriteLineElement(Points{{1010, 2010}, {1012, 2012}}, true);
    build.writer.Commit();
    EXPECT_EQ(build.TileFile("0L.PMM").size(), 41U + 32 + 12 + 2 * (32 + 4));
}

TEST(Elements, TextLeavesItsLengthBehind) {
    Build build;
    build.writer.Feature() = {0, 5, 255, 1, 2};
    ASSERT_TRUE(build.writer.WriteTextElement({{300, 600}, 2.59, 1.5707963, 2}, "Caf\xC3\xA9 \xE2\x82\xAC"));
    build.writer.WriteLineElement(Points{{300, 600}});
    build.writer.Commit();
    EXPECT_EQ(build.TileFile("100002T.PMM"), PmmHeaderOf(300, 600, 300, 600, 250) +
                                                 Header(3, 0, 5, 26, 255, 1, 2) + F64(300) + F64(600) +
                                                 I16(25) + I16(900) + "Caf\xE9 \x80");
    EXPECT_EQ(build.TileFile("100002L.PMM").substr(41, 14), Header(2, 0, 5, 26, 255, 1, 2));
}

TEST(Elements, WhatHasNoPlaceIsRefusedAndCounted) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    Build build;
    PackageWriter& writer = build.writer;
    EXPECT_FALSE(writer.WriteLineElement({}));
    EXPECT_FALSE(writer.WriteLineElement(Points{{100, 100}, {-0.01, 100}}));
    EXPECT_FALSE(writer.WriteTextElement({{1, 1}, 10, 0, 8}, "left of zero"));
    EXPECT_FALSE(writer.WriteLineElement(Points{{1e12, 1}}));
    EXPECT_FALSE(writer.WriteLineElement(Points{{1, 1}, {infinite, 1}}));
    EXPECT_FALSE(writer.WriteLineElement(Points{{1, 1}, {1.2e7, 1}}));
    writer.WriteAreaRing();  // of nothing
    EXPECT_TRUE(writer.WriteTextElement({{9, 9}, 1, 0, 42}, std::string(40000, 'x')));
    writer.WriteLineElement(Points{{0.5, 0.5}, {0.75, 3}, {0.5, 0.5}});
    writer.WriteAreaRing();
    writer.Commit();
    EXPECT_EQ(build.ui.messages,
              (std::vector<std::string>{
                  "LOW Element Line 0", "unk Digi Pos 42", "suspicious 1 VSmall min made",
                  "suspicious 2 VSmall min made", "Features with negative coordinates, not in the package: 2",
                  "Features outside the grid of tiles, not in the package: 2",
                  "Lines with too many vertices, not in the package: 1", "Texts that were cut: 1"}));
    EXPECT_EQ(build.Prove().texts, 1U);
}
