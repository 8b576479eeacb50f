// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/worldfile/WorldFile.h"
#include "raster/Gdal.h"

#include <functional>
#include <string>

namespace vexlator::raster {

/// A part of an image, which lives as long as the call that it is handed to.
struct ImageTile {
    int row, column;  ///< of the tile, from 0 at the top left
    GDALDatasetH image;
    formats::WorldFile world;
};

/// How many tiles an image was cut into.
struct TileCount {
    int rows = 0, columns = 0;
};
TileCount CountTiles(GDALDatasetH image, int tileSize);

/// Calls `take` with an image's tiles, row after row. Those at the right and lower edges are as small as the
/// image leaves them.
/// @throws platform::ReadError
void CarveTiles(GDALDatasetH image, const std::string& file, const formats::WorldFile& world, int tileSize,
                const std::function<void(const ImageTile& tile)>& take);

}  // namespace vexlator::raster
