// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/worldfile/WorldFile.h"
#include "georef/Fit.h"
#include "raster/Gdal.h"

#include <string>

namespace vexlator::makeworldfile {

/// An image whose rows run from west to east, in order from north to south.
struct NorthUpImage {
    raster::ScratchImage image;
    formats::WorldFile world;
};

/// Rotates an image by its fit: bilinear, with pixels of the size at the image's centre, and white outside of
/// it.
/// @throws std::runtime_error if it would become too large; platform::WriteError
NorthUpImage TurnNorthUp(GDALDatasetH image, const georef::Fit& fit, const std::string& scratch);

}  // namespace vexlator::makeworldfile
