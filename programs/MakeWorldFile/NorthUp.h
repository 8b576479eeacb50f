// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MakeWorldFile/Gdal.h"
#include "georef/Fit.h"
#include "georef/WorldFile.h"

#include <string>

namespace vexlator::makeworldfile {

/// An image whose rows run from west to east, from the north down.
struct NorthUpImage {
    ScratchImage image;
    georef::WorldFile world;
};

/// Turns an image by its fit: bilinear, the pixels as large as the image's are in its middle, white where it
/// does not reach. @throws std::runtime_error: it would become too large; platform::WriteError
NorthUpImage TurnNorthUp(GDALDatasetH image, const georef::Fit& fit, const std::string& scratch);

}  // namespace vexlator::makeworldfile
