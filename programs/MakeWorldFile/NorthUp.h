// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/worldfile/WorldFile.h"
#include "georef/Fit.h"
#include "raster/Gdal.h"

#include <string>

namespace vexlator::makeworldfile {

/// The layout of an image whose rows run from west to east, in order from north to south.
struct NorthUpFrame {
    int width = 0, height = 0;
    formats::WorldFile world;
};

/// What holds an image of that size after it is rotated by its fit, with square pixels of the size at its
/// centre.
/// @throws std::runtime_error if it would become too large
NorthUpFrame FrameNorthUp(const georef::Fit& fit, int width, int height);

/// Rotates an image into its frame: bilinear, and white outside of the image.
/// @throws std::runtime_error if the fit bends too much; platform::WriteError
raster::ScratchImage TurnNorthUp(GDALDatasetH image, const georef::Fit& fit, const NorthUpFrame& frame,
                                 const std::string& scratch);

}  // namespace vexlator::makeworldfile
