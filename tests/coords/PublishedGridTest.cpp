// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "CoordsTest.h"

#include <algorithm>

namespace vexlator::test {
namespace {

using coords::frmLatLng;
using coords::Rounding;

/// With the published grids, against the projection library's own program.
class PublishedGridTest : public CoordsTest {
protected:
    void SetUp() override {
        if (!HasOstn15()) GTEST_SKIP() << "the OSTN15 grid is not here";
    }

    /// Points all over Great Britain, with heights, the same in every run.
    static std::vector<Triple> BritishPoints() {
        std::vector<Triple> points;
        std::uint64_t state = 2015;
        auto next = [&](double least, double most) {
            state = state * 6364136223846793005U + 1442695040888963407U;
            return least + (most - least) * static_cast<double>(state >> 40) / static_cast<double>(1 << 24);
        };
        while (points.size() < 1000)
            points.push_back({next(80000, 620000), next(10000, 1210000), next(-10, 1300)});
        // From south to north, as the peer is slow when neighbours are far apart.
        std::sort(points.begin(), points.end(), [](const Triple& a, const Triple& b) { return a[1] < b[1]; });
        return points;
    }

    /// Both directions, before formatting, to a millimetre.
    void CompareWithPeer() {
        const std::string pipeline =
            " -d 12 +proj=pipeline +step +inv +proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 "
            "+y_0=-100000 +ellps=airy +step +proj=hgridshift +grids=uk_os_OSTN15_NTv2_OSGBtoETRS.tif "
            "+step +proj=vgridshift +grids=uk_os_OSGM15_GB.tif +multiplier=1 "
            "+step +proj=unitconvert +xy_in=rad +xy_out=deg";
        std::vector<Triple> grid = BritishPoints();
        std::vector<Triple> degrees = Peer("cct -t 0" + pipeline, grid);
        std::vector<Triple> back = Peer("cct -I -t 0" + pipeline, degrees);

        std::vector<util::PlanePoint> points;
        std::vector<double> heights;
        for (const Triple& p : grid) {
            points.push_back({p[0], p[1]});
            heights.push_back(p[2]);
        }
        frmLatLng form(run);
        ASSERT_EQ(form.GridToLatLng(points, heights, Rounding::None), 0U);
        constexpr double millimetre = 0.001 / 111320;  // in degrees of latitude, the shorter way
        for (std::size_t i = 0; i < grid.size(); ++i) {
            EXPECT_NEAR(points[i].x, degrees[i][0], millimetre) << i;
            EXPECT_NEAR(points[i].y, degrees[i][1], millimetre) << i;
            EXPECT_NEAR(heights[i], degrees[i][2], 0.001) << i;
        }
        ASSERT_EQ(form.LatLngToGrid(points, heights, Rounding::None), 0U);
        for (std::size_t i = 0; i < grid.size(); ++i) {
            EXPECT_NEAR(points[i].x, back[i][0], 0.001) << i;
            EXPECT_NEAR(points[i].y, back[i][1], 0.001) << i;
            EXPECT_NEAR(heights[i], back[i][2], 0.001) << i;
        }
        EXPECT_TRUE(ui.messages.empty()) << ui.messages[0];
    }
};

TEST_F(PublishedGridTest, TheCorrectionGridAgreesWithThePeer) {
    InstallOstn15("proj");
    CompareWithPeer();
}

TEST_F(PublishedGridTest, ADefinedSystemAgreesWithThePeer) {
    InstallOstn15("proj");
    InstallOstn15("inst/Resources");
    Define("EPSG:7405");
    CompareWithPeer();
}

}  // namespace
}  // namespace vexlator::test
