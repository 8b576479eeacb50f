// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "georef/PointEntries.h"

#include <string>
#include <string_view>

/// The files *.points of QGIS' georeferencer. Their pixel y starts with 0 at the image's top and points up,
/// so it is negative on the image.
namespace vexlator::georef {

/// The entries of a .points file. The first line names the columns, else they are mapX, mapY, pixelX, pixelY,
/// enable. Points that are not enabled are left out.
/// @throws platform::ReadError: a line that is not a point, or more points than an image may have
PointEntries ParseQgisPoints(std::string_view text);
/// @throws platform::ReadError, also when the file cannot be read, or is too large
PointEntries ReadQgisPoints(std::string_view path);

/// Writes every entry whose two positions are numbers, and ignores others.
std::string QgisPointsText(const PointEntries& entries);

}  // namespace vexlator::georef
