// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MakeWorldFile/Gdal.h"
#include "georef/WorldFile.h"
#include "platform/OutputSet.h"

#include <string>

namespace vexlator::makeworldfile {

/// How many tiles an image was cut into.
struct TileCount {
    int rows = 0, columns = 0;
};

/// Adds an image's tiles to a set, each with its world file: FOLDER\NAME_RRR_CCC.jpg, row and column from 1
/// at the top left, so that the order of names is that of rows and columns. Those at the right and lower
/// edges are as small as the image leaves them.
/// @throws platform::ReadError, WriteError
TileCount CarveTiles(GDALDatasetH image, const std::string& file, const georef::WorldFile& world,
                     int tileSize, const std::string& folderAndName, platform::OutputSet& outputs);

}  // namespace vexlator::makeworldfile
