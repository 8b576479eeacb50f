// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "georef/Fit.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::georef {

/// A control point as the user edits it: both positions as text, "x,y". A text without "," is not complete
/// yet.
struct PointEntry {
    std::string pixel, ground;
    bool isLeftOut = false;  ///< kept, but left out of the fit
    bool operator==(const PointEntry&) const = default;
};

/// The point with number n is element n - 1. A number without an entry is an element without texts.
using PointEntries = std::vector<PointEntry>;

/// Larger numbers are not control points.
constexpr std::size_t mostPoints = 10'000;
/// Bytes; nobody writes a larger file of control points.
constexpr std::uint64_t largestPointsFile = 10'000'000;

/// The lines of a control-point list, "nP=x,y" and "nG=x,y" in any order. Other lines are ignored. The first
/// of two lines for the same text counts.
PointEntries ParsePointText(std::string_view text);
/// The same as text: the P and G lines of every point with a pixel position.
std::string PointText(const PointEntries& entries);

/// Gives a pixel position to the lowest number without one, and returns the number.
int AddPoint(PointEntries& entries, util::PlanePoint pixel);
/// Removes a point. Later points move up.
void RemovePoint(PointEntries& entries, int number);

/// The number of entries before the first without a position.
std::size_t CountComplete(const PointEntries& entries);
/// The points for the fit, in grid coordinates: the complete entries that are not left out.
/// @throws FitError: names the point whose position is not two numbers, or is in degrees
std::vector<ControlPoint> PointsForFit(const PointEntries& entries);
/// Whether every ground value of the points for the fit is below 360, like degrees. False without points.
bool AreDegrees(const PointEntries& entries);

/// The contents of a georeference file, the .INI beside an image.
struct GeorefFile {
    PointEntries points;
    int width = 0, height = 0;  ///< size of the image in pixels; 0 if unknown
    bool rotate = false;        ///< rotate the image so that north is up
    Fit::Order order = Fit::Order::First;
};

/// The path of an image's georeference file.
std::string GeorefFilePath(std::string_view imagePath);
/// The contents of the file; nothing for missing or invalid values, or without the file.
/// @throws platform::ReadError if it cannot be read, or is too large
GeorefFile ReadGeorefFile(std::string_view path);
GeorefFile ParseGeorefFile(std::string_view text);
/// Rewrites our sections and keeps others. The points of the fit get the numbers 1, 2, ... under the keys
/// that helper programs read. All others keep their numbers in a separate section.
/// @throws platform::WriteError
void WriteGeorefFile(std::string_view path, const GeorefFile& file);
/// The same with all points aside, so that helper programs find none and use the image's world file.
void WriteGeorefFileForCarving(std::string_view path, const GeorefFile& file);

}  // namespace vexlator::georef
