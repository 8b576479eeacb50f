// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "georef/Fit.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::georef {

/// A control point as people edit it: both positions as text, "x,y". A text without "," is not complete yet.
struct PointEntry {
    std::string pixel, ground;
    bool isLeftOut = false;  ///< kept, but not for the fit
    bool operator==(const PointEntry&) const = default;
};

/// The point with number n is element n - 1. A number that has no entry yet is an element without texts.
using PointEntries = std::vector<PointEntry>;

/// Numbers beyond are no control points.
constexpr std::size_t mostPoints = 10'000;

/// The lines of a control-point list, "nP=x,y" and "nG=x,y" in any order; other lines are passed over. Of two
/// lines for the same text the first counts.
PointEntries ParsePointText(std::string_view text);
/// The same as text: the P and the G line of every point that has a pixel position.
std::string PointText(const PointEntries& entries);

/// Gives the lowest number without pixel position that position, and returns it.
int AddPoint(PointEntries& entries, util::PlanePoint pixel);
/// Removes a point; those behind it move up.
void RemovePoint(PointEntries& entries, int number);

/// How many entries count: those before the first that lacks a position.
std::size_t CountComplete(const PointEntries& entries);
/// The points for the fit, in grid coordinates: the complete entries that are not left out.
/// @throws FitError: names the point whose position is not two numbers, or is in degrees
std::vector<ControlPoint> PointsForFit(const PointEntries& entries);
/// Whether every ground value is below 360, as degrees are. False when there is none.
bool AreDegrees(const PointEntries& entries);

/// What a georeference file, the .INI beside an image, holds.
struct GeorefFile {
    PointEntries points;
    int width = 0, height = 0;  ///< of the image in pixels; 0 when not told
    bool rotate = false;        ///< turn the image so that north is up
    Fit::Order order = Fit::Order::First;
};

/// The path of an image's georeference file.
std::string GeorefFilePath(std::string_view imagePath);
/// What the file says; nothing for what is missing or not understood, or when there is no such file.
/// @throws platform::ReadError when it cannot be read, or is too large to be one
GeorefFile ReadGeorefFile(std::string_view path);
GeorefFile ParseGeorefFile(std::string_view text);
/// Writes the sections that are ours anew; others stay. The points for the fit get the numbers 1, 2, ...
/// under the keys that helper programs read, all others keep theirs in a section aside. @throws
/// platform::WriteError
void WriteGeorefFile(std::string_view path, const GeorefFile& file);

}  // namespace vexlator::georef
