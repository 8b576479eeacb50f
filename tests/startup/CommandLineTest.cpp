// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/CommandLine.h"

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vexlator::startup {
namespace {

TEST(Extent, TheBlockIsTakenOutOfTheText) {
    struct Case {
        std::string text, left;
        std::array<double, 4> extent;
    };
    const Case cases[] = {
        {"IMPORT a.SHP ?BOX 1,2,3,4 ?", "IMPORT a.SHP", {1, 2, 3, 4}},
        {" a ?box -1.5,2e1,x,?b ", "a b", {-1.5, 20, 0, 0}},
        {"a?BOX1?b", "ab", {0, 0, 0, 0}},
    };
    for (const Case& c : cases) {
        std::string text = c.text;
        auto extent = TakeExtent(text);
        ASSERT_TRUE(extent) << c.text;
        EXPECT_EQ(text, c.left) << c.text;
        EXPECT_EQ((std::array{extent->minX, extent->minY, extent->maxX, extent->maxY}), c.extent) << c.text;
    }
    for (std::string open : {"a ?BO", "a ?BOX", " a ?BOX 1,2,3,4 "}) {
        std::string text = open;
        EXPECT_FALSE(TakeExtent(text)) << open;
        EXPECT_EQ(text, open);
    }
}

}  // namespace
}  // namespace vexlator::startup
