// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/frmLatLng.h"
#include "formats/worldfile/WorldFile.h"
#include "georef/Ground.h"
#include "georef/PointEntries.h"

#include <optional>
#include <string>
#include <string_view>

/// From degrees to the selected national grid.
namespace vexlator::georef {

/// A typed position in the grid, as an entry for the list of control points: "easting,northing" with three
/// decimals. If the order of latitude and longitude is open, and only the longitude first gives a place in
/// the grid, the longitude comes first. `said` gives the meaning. The entry is "" if there is no place.
struct GridEntry {
    std::string entry;
    Sentence said;
};
/// A place as an entry.
std::string GroundEntry(util::PlanePoint grid);
/// A place as an entry with all its decimals: points of a world file give that world file back.
std::string ExactGroundEntry(util::PlanePoint grid);
GridEntry ToGridEntry(std::string_view typed, coords::frmLatLng& grid);

/// Converts every ground value in degrees to the grid. Values without a place in the grid stay. Returns the
/// number of conversions.
std::size_t ConvertGroundToGrid(PointEntries& entries, coords::frmLatLng& grid);

/// The world file in the grid of an image of that size whose own is in degrees: from its top left and bottom
/// right corners, without rotation. Nothing when a corner has no place in the grid.
std::optional<formats::WorldFile> ProjectWorldFile(const formats::WorldFile& degrees, int width, int height,
                                                   coords::frmLatLng& grid);

/// The path of an image's world file in degrees.
std::string DegreesWorldFilePath(std::string_view imagePath);

}  // namespace vexlator::georef
