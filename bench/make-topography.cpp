// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

/// make-topography FEATURES OUT.VDF: writes a drawing of classified topography, half open lines, half closed,
/// with 12 to 20 vertices each, at random positions with a thousand features per square kilometre. Every run
/// writes the same drawing.
#include "drawing/Drawing.h"
#include "util/Numbers.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <exception>
#include <numbers>
#include <random>
#include <string>

namespace {

using namespace vexlator;

constexpr double featuresPerSquareUnit = 1000 / 1e6;
constexpr std::array<std::string_view, 4> layers = {"BUILDING", "ROAD", "WATER", "LAND"};
constexpr std::array<std::string_view, 4> themes = {"Buildings", "Roads Tracks And Paths", "Water", "Land"};
constexpr std::array<std::string_view, 4> groups = {"Building", "Road Or Track", "Inland Water",
                                                    "Natural Environment"};

class Topography {
public:
    explicit Topography(std::size_t features) : side_(std::sqrt(double(features) / featuresPerSquareUnit)) {
        const std::string names[] = {"TOID", "THEME", "MAKE", "DESCRIPTIVEGROUP"};
        names_ = drawing_.attributeSet(names);
        for (std::size_t i = 0; i < features; ++i) Add(i);
    }
    void Save(const char* path) const { drawing_.saveAs(path); }

private:
    void Add(std::size_t number) {
        std::size_t kind = number % layers.size();
        drawing_.setActiveLayer(layers[kind]);
        drawing::Entity entity = drawing_.addPolyline();
        bool isArea = number % 2 == 0;
        entity.setClosed(isArea);
        std::span<drawing::PlanePoint> course = drawing_.extendPlan(12 + random_() % 9);
        drawing::PlanePoint at{400000 + Random(side_), 200000 + Random(side_)};
        for (std::size_t v = 0; v < course.size(); ++v)
            course[v] = isArea ? OnRing(at, v, course.size()) : OnLine(at, v);
        drawing_.beginValues(names_);
        drawing_.appendValue("osgb" + util::ZeroPadded(std::int64_t(number) + 1000000000, 12));
        drawing_.appendValue(themes[kind]);
        drawing_.appendValue(kind < 2 ? "Manmade" : "Natural");
        drawing_.appendValue(groups[kind]);
    }
    double Random(double below) { return std::uniform_real_distribution(0.0, below)(random_); }
    drawing::PlanePoint OnLine(drawing::PlanePoint at, std::size_t v) {
        return {at.x + 6 * double(v), at.y + Random(8)};
    }
    drawing::PlanePoint OnRing(drawing::PlanePoint at, std::size_t v, std::size_t count) {
        double angle = 2 * std::numbers::pi * double(v) / double(count), radius = 12 + Random(4);
        return {at.x + radius * std::cos(angle), at.y + radius * std::sin(angle)};
    }

    double side_;
    drawing::Drawing drawing_;
    drawing::AttributeSet names_;
    std::mt19937_64 random_{20261125};
};

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "make-topography FEATURES OUT.VDF\n");
        return 2;
    }
    try {
        auto features = static_cast<std::size_t>(util::IntegerOf(arguments[1]));
        Topography(features).Save(arguments[2]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make-topography: %s\n", error.what());
        return 1;
    }
}
