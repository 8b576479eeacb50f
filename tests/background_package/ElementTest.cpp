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

const Points square = {{1000, 2000}, {1010, 2000}, {1010, 2010}, {1000, 2010}, {1000, 2000}};

}  // namespace

TEST(Elements, AHoleJoinsTheAreaOfItsRing) {
    Build build;
    build.writer.WriteLineElement(square);
    build.writer.WriteAreaRing();
    build.writer.WriteLineElement(Points{{1004, 2004}, {1006, 2004}, {1006, 2006}, {1004, 2004}}, true);
    build.writer.WriteAreaRing(Ring::JoinsArea);
    build.writer.Commit();
    EXPECT_EQ(build.Prove().areas, 1U);
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

TEST(Elements, WhatHasNoPlaceIsRefusedAndCounted) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    Build build;
    PackageWriter& writer = build.writer;
    EXPECT_FALSE(writer.WriteLineElement({}));
    EXPECT_FALSE(writer.WriteLineElement(Points{{100, 100}, {-0.01, 100}}));
    EXPECT_FALSE(writer.WriteTextElement({{1, 1}, 10, 0, 8}, "left of zero"));
    writer.BeginEntity();
    EXPECT_FALSE(writer.WriteTextElement({{1, 1}, 10, 0, 8}, "left of zero"));
    for (const Points& far : {Points{{1e12, 1}}, Points{{1, 1}, {infinite, 1}}, Points{{1, 1}, {1.2e7, 1}}}) {
        writer.BeginEntity();
        EXPECT_FALSE(writer.WriteLineElement(far));
    }
    writer.WriteAreaRing();  // length of nothing
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
