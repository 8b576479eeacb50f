// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "georef/PointEntries.h"

#include <optional>
#include <string>
#include <string_view>

/// What people do with an image and its control points. Questions and messages go to the run's user
/// interface; the work on the pixels is done by the program MakeWorldFile.
namespace vexlator::georef {

struct ImageOnDisk {
    std::string path;  ///< path text
    int width = 0, height = 0;
};

/// What became of georeferencing.
struct GeorefOutcome {
    std::optional<PointEntries> converted;  ///< the points in the grid; nothing else was done
    std::string worldFile;                  ///< where it was written
    std::string rotatedImage;               ///< which is to be shown now; "": none
};

/// Writes the image's georeference file and, after questions, its world file; or, where the file says so, the
/// image turned north-up and the world file of that.
/// @throws platform::Stopped, WriteError, ReadError
GeorefOutcome Georeference(config::Run& run, const ImageOnDisk& image, const GeorefFile& file);

/// Cuts an image that has a world file into tiles of 400 pixels. The points of `file` are kept aside in the
/// georeference file, since the world file places the tiles. Returns the path of the first tile; "" when it
/// failed. @throws platform::Stopped, WriteError, ReadError
std::string Carve(config::Run& run, const ImageOnDisk& image, const GeorefFile& file);

/// Makes the world file of an image that is delivered with one in degrees. One that says otherwise is only
/// replaced after a question. @throws platform::ReadError, WriteError
void ProjectDegrees(config::Run& run, const ImageOnDisk& image);

}  // namespace vexlator::georef
