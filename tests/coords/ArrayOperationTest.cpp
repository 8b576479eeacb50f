// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "CoordsTest.h"
#include "Ntv2Grid.h"
#include "coords/CoordinateOperation.h"

#include <random>

namespace vexlator::test {
namespace {

using namespace coords;

constexpr const char* gridPipeline =
    "+proj=pipeline +step +inv +proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 +y_0=-100000 "
    "+ellps=airy +step +proj=hgridshift +grids=test.gsb +step +proj=unitconvert +xy_in=rad +xy_out=deg";

/// A definition, a position in its area, and whether our own arithmetic computes a part of it.
struct System {
    const char* definition;
    double longitude, latitude;
    bool ours;
};

constexpr System systems[] = {
    {"EPSG:27700", -2, 54, true},   // several operations, chosen by position
    {"EPSG:31467", 9, 51, true},    // northing first, several operations
    {"EPSG:32630", -3, 60, true},   // no change of datum
    {"EPSG:32733", 15, -30, true},  // the southern half
    {"EPSG:2193", 173, -41, true},  // extends over 180 degrees
    {"EPSG:2100", 24, 38, true},    // three parameters
    {"+proj=tmerc +lat_0=49.5 +lon_0=-2 +k=0.9996 +x_0=1000 +y_0=2000 +a=6377563.396 +b=6356256.909 "
     "+towgs84=446.448,-125.157,542.06,0.15,0.247,0.842,-20.489 +type=crs",
     -2, 54, true},
    {"+proj=pipeline +step +inv +proj=utm +zone=31 +ellps=intl +step +proj=push +v_3 +step +proj=cart "
     "+ellps=intl +step +proj=helmert +x=-87 +y=-98 +z=-121 +rx=1 +ry=-2 +rz=3 +s=5 "
     "+convention=coordinate_frame +step +inv +proj=cart +ellps=WGS84 +step +proj=pop +v_3 "
     "+step +proj=unitconvert +xy_in=rad +xy_out=deg",
     3, 45, true},
    {gridPipeline, -1, 52, true},
    {"+proj=pipeline +step +inv +proj=tmerc +approx +lon_0=-2 +ellps=airy +step +proj=unitconvert "
     "+xy_in=rad +xy_out=deg",
     -2, 50, false},
    {"EPSG:28992", 5, 52, false},
    {"EPSG:2154", 3, 47, false},
};

class ArrayOperationTest : public CoordsTest {
protected:
    ArrayOperationTest() : context({folder / "grids"}) {
        folder.Write("grids/test.gsb", Ntv2Grid(3.6F, 7.2F).Bytes());
    }

    /// The library's own result for the definition.
    ProjObject Peer(const System& system) {
        ProjObject object = context.Create(system.definition);
        if (!proj_is_crs(object.get())) return object;
        const char* const options[] = {"ALLOW_BALLPARK=NO", nullptr};
        ProjObject target = context.Create("EPSG:4326");
        object.reset(
            proj_create_crs_to_crs_from_pj(context.Get(), object.get(), target.get(), nullptr, options));
        return ProjObject(proj_normalize_for_visualization(context.Get(), object.get()));
    }

    /// Positions near and far, and invalid ones.
    std::vector<util::PlanePoint> Degrees(const System& system) {
        std::vector<util::PlanePoint> points{{0, 90},   {180, 0},       {-180, -90},    {NAN, 0},
                                             {0, NAN},  {HUGE_VAL, 50}, {0, -HUGE_VAL}, {361, 0},
                                             {0, 90.1}, {1e300, 1e300}};
        std::uniform_real_distribution near(-7.0, 7.0), longitude(-180.0, 180.0), latitude(-90.0, 90.0);
        for (int i = 0; i < 20000; ++i)
            points.push_back({system.longitude + near(random), system.latitude + near(random)});
        for (int i = 0; i < 1000; ++i) points.push_back({longitude(random), latitude(random)});
        return points;
    }

    /// Number of results that differ from the library's in any bit; none may differ by more than `tolerance`.
    static int CountOther(const std::vector<util::PlanePoint>& results,
                          const std::vector<util::PlanePoint>& expected, double tolerance) {
        int others = 0;
        for (std::size_t i = 0; i < results.size(); ++i) {
            bool finite = std::isfinite(expected[i].x) && std::isfinite(expected[i].y);
            EXPECT_EQ(std::isfinite(results[i].x) && std::isfinite(results[i].y), finite) << i;
            if (!finite) continue;
            EXPECT_NEAR(results[i].x, expected[i].x, tolerance) << i;
            EXPECT_NEAR(results[i].y, expected[i].y, tolerance) << i;
            if (results[i] != expected[i]) ++others;
        }
        return others;
    }

    ProjContext context;
    std::mt19937 random{2011};
};

TEST_F(ArrayOperationTest, AgreesWithTheLibraryEverywhere) {
    for (const System& system : systems) {
        SCOPED_TRACE(system.definition);
        ArrayOperation operation = OperationFor(context, system.definition).operation;
        ProjObject peer = Peer(system);
        ASSERT_TRUE(operation && peer);
        std::vector<util::PlanePoint> ours = Degrees(system), theirs = ours;
        std::vector<double> heights(ours.size(), 850), theirHeights = heights;
        operation.Convert(Direction::ToGrid, {ours, heights});
        Transform(*peer, Direction::ToGrid, {theirs, theirHeights});
        EXPECT_EQ(CountOther(ours, theirs, 1e-5) > 0, system.ours);
        ours = theirs;
        ours.insert(ours.end(), {{NAN, 0}, {HUGE_VAL, 0}, {1e12, 0}, {1e8, 1e8}, {0, -1e300}});
        theirs = ours;
        operation.Convert(Direction::ToLatLng, {ours, {}});
        Transform(*peer, Direction::ToLatLng, {theirs, {}});
        EXPECT_EQ(CountOther(ours, theirs, 1e-9) > 0, system.ours);
    }
}

}  // namespace
}  // namespace vexlator::test
