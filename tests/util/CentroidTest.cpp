// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Geometry.h"

#include <gtest/gtest.h>
#include <vector>

namespace vexlator::util {

using Points = std::vector<PlanePoint>;

TEST(CentroidOf, IsThatOfTheAreaAndOtherwiseTheLinesMiddle) {
    struct Case {
        Points ring;
        PlanePoint centroid;
    };
    const std::vector<Case> cases = {
        {{{0, 0}, {6, 0}, {6, 6}, {0, 6}}, {3, 3}},
        {{{0, 0}, {0, 6}, {6, 6}, {6, 0}, {0, 0}}, {3, 3}},  // clockwise, closed
        {{{0, 0}, {6, 0}, {0, 3}}, {2, 1}},
        {{{500000, 300000}, {500001, 300000}, {500001, 300001}, {500000, 300001}}, {500000.5, 300000.5}},
        {{{0, 0}, {10, 0}, {0, 0}}, {10, 0}},  // no area
        {{{4, 5}, {4, 5}}, {4, 5}},
        {{{4, 5}}, {4, 5}},
    };
    for (const Case& one : cases) {
        PlanePoint found = CentroidOf(one.ring);
        EXPECT_NEAR(found.x, one.centroid.x, 1e-9);
        EXPECT_NEAR(found.y, one.centroid.y, 1e-9);
    }
}

TEST(MiddleOf, LiesHalfwayAlongTheLine) {
    EXPECT_EQ(MiddleOf(Points{{0, 0}, {10, 0}, {10, 10}}), (PlanePoint{10, 0}));
    EXPECT_EQ(MiddleOf(Points{{0, 0}, {2, 0}, {2, 0}, {8, 0}}), (PlanePoint{4, 0}));
    EXPECT_EQ(MiddleOf(Points{{1, 2}}), (PlanePoint{1, 2}));
}

}  // namespace vexlator::util
