// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/GroundConversion.h"

#include "util/Numbers.h"
#include "util/Paths.h"

#include <cmath>
#include <utility>

namespace vexlator::georef {

namespace {

using Texts = std::optional<coords::frmLatLng::Texts>;

Texts ToGrid(util::PlanePoint degrees, coords::frmLatLng& grid) {
    return grid.LatLngToGrid(util::FormatShortest(degrees.y), util::FormatShortest(degrees.x), "0");
}

std::optional<util::PlanePoint> CornerInGrid(util::PlanePoint degrees, coords::frmLatLng& grid) {
    Texts texts = ToGrid(degrees, grid);
    if (!texts) return std::nullopt;
    return util::PlanePoint{util::NumberOf(texts->first), util::NumberOf(texts->second)};
}

}  // namespace

std::string GroundEntry(util::PlanePoint grid) {
    constexpr int decimals = 3;
    return util::FormatFixed(grid.x, decimals) + "," + util::FormatFixed(grid.y, decimals);
}

std::string ExactGroundEntry(util::PlanePoint grid) {
    return util::FormatShortest(grid.x) + "," + util::FormatShortest(grid.y);
}

GridEntry ToGridEntry(std::string_view typed, coords::frmLatLng& grid) {
    GroundReading reading = ReadGround(typed);
    if (reading.kind == GroundKind::None) return {"", reading.said};
    if (reading.kind == GroundKind::Grid) return {GroundEntry(reading.place), reading.said};
    Texts texts = ToGrid(reading.place, grid);
    if (!texts && !reading.isOrderKnown) {
        std::swap(reading.place.x, reading.place.y);
        texts = ToGrid(reading.place, grid);
        reading.said = PlaceInWords(reading.place, false) +
                       InWords("vexlator", " (in this order, because the other is outside the grid)");
    }
    if (!texts) return {"", reading.said + InWords("vexlator", ": outside the selected grid")};
    return {texts->first + "," + texts->second, reading.said};
}

namespace {

/// "" for values that are not in degrees, or have no place in the grid. Longitudes up to 360 are degrees
/// here, since the question before has taken them for such.
std::string DegreesEntry(const std::string& typed, coords::frmLatLng& grid) {
    constexpr double fullCircle = 360;
    if (ReadGround(typed).kind == GroundKind::Degrees) return ToGridEntry(typed, grid).entry;
    std::optional<util::PlanePoint> pair = ReadNumberPair(typed);
    if (!pair || std::fabs(pair->x) >= fullCircle || std::fabs(pair->y) >= fullCircle) return "";
    Texts texts = ToGrid({pair->y, pair->x}, grid);
    if (!texts) texts = ToGrid(*pair, grid);
    return texts ? texts->first + "," + texts->second : "";
}

}  // namespace

std::size_t ConvertGroundToGrid(PointEntries& entries, coords::frmLatLng& grid) {
    std::size_t converted = 0;
    for (PointEntry& entry : entries) {
        std::string inGrid = DegreesEntry(entry.ground, grid);
        if (inGrid.empty()) continue;
        entry.ground = inGrid;
        ++converted;
    }
    return converted;
}

std::optional<formats::WorldFile> ProjectWorldFile(const formats::WorldFile& degrees, int width, int height,
                                                   coords::frmLatLng& grid) {
    std::optional<util::PlanePoint> topLeft = CornerInGrid({degrees.c, degrees.f}, grid);
    std::optional<util::PlanePoint> bottomRight =
        CornerInGrid({degrees.c + degrees.a * width, degrees.f + degrees.e * height}, grid);
    if (!topLeft || !bottomRight || width < 1 || height < 1) return std::nullopt;
    return formats::WorldFile{(bottomRight->x - topLeft->x) / width,  0,          0,
                              (bottomRight->y - topLeft->y) / height, topLeft->x, topLeft->y};
}

std::string DegreesWorldFilePath(std::string_view imagePath) {
    return util::ChangeExtension(imagePath, "JPGW");
}

}  // namespace vexlator::georef
