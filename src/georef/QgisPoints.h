// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "georef/PointEntries.h"

#include <string>
#include <string_view>

/// The files *.points of QGIS' georeferencer. Their pixel y runs upwards from 0 at the image's top, so that
/// it is negative on the image.
namespace vexlator::georef {

/// The entries of a .points file: columns by their names in the first line, else mapX, mapY, pixelX, pixelY,
/// enable. Points that are not enabled are left out.
/// @throws platform::ReadError: a line that is no point, or more points than an image may have
PointEntries ParseQgisPoints(std::string_view text);

/// Every entry whose two positions are numbers; others are passed over.
std::string QgisPointsText(const PointEntries& entries);

}  // namespace vexlator::georef
