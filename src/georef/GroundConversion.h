// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/frmLatLng.h"
#include "georef/Ground.h"
#include "georef/PointEntries.h"
#include "georef/WorldFile.h"

#include <optional>
#include <string>
#include <string_view>

/// From degrees to the selected national grid.
namespace vexlator::georef {

/// A typed position in the grid, as an entry for the list of control points: "easting,northing" with three
/// decimals. Where nothing tells latitude from longitude and only the longitude first has a place in the
/// grid, it comes first. `said` tells what was understood; the entry is "" when there is no place.
struct GridEntry {
    std::string entry, said;
};
GridEntry ToGridEntry(std::string_view typed, coords::frmLatLng& grid);

/// Every ground value in degrees becomes one in the grid; those that have no place in it stay. Returns how
/// many were converted.
std::size_t ConvertGroundToGrid(PointEntries& entries, coords::frmLatLng& grid);

/// The world file in the grid of an image of that size whose own is in degrees: from its top left and bottom
/// right corners, without rotation. Nothing when a corner has no place in the grid.
std::optional<WorldFile> ProjectWorldFile(const WorldFile& degrees, int width, int height,
                                          coords::frmLatLng& grid);

/// The path of the world file in degrees of an image.
std::string DegreesWorldFilePath(std::string_view imagePath);

}  // namespace vexlator::georef
