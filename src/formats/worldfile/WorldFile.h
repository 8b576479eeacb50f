// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// The position of an image on the ground, as the six terms of a world file, in the file's order. The centre
/// of the pixel in column i and row j, both from 0, has X = a i + b j + c and Y = d i + e j + f. Elsewhere in
/// the code, a pixel position has its origin at the outer corner of the top left pixel, x to the right, y
/// downwards.
struct WorldFile {
    double a = 1, d = 0, b = 0, e = -1, c = 0, f = 0;

    util::PlanePoint Ground(util::PlanePoint pixel) const;
    /// Not for terms with Determinant() 0.
    util::PlanePoint Pixel(util::PlanePoint ground) const;
    /// The terms of a part of the image that begins at that column and row.
    WorldFile Part(double column, double row) const;
    /// 0 if the image has no area; above 0 if it is mirrored.
    double Determinant() const { return a * e - b * d; }
    /// Side of a square with the area of a pixel, in ground units.
    double PixelSize() const;

    bool operator==(const WorldFile&) const = default;
};

/// Six numbers, one per line. Accepts a decimal comma.
/// @throws platform::ReadError: a line is missing or not a number, or the terms give the image no area
WorldFile ParseWorldFile(std::string_view text);
/// @throws platform::ReadError, also when the file cannot be read
WorldFile ReadWorldFile(std::string_view path);

/// Plain decimal numbers with as many decimals as needed, at least three. Lines end in CR LF.
std::string WorldFileText(const WorldFile& terms);

/// The path of an image's world file: first and last letter of its extension and W, in the extension's letter
/// case. plan.jpg gives plan.jgw, PLAN.TIFF gives PLAN.TFW.
std::string WorldFilePath(std::string_view imagePath);
/// All possible names of an image's world file, the one above first. World files in degrees (.JPGW) are not
/// among them.
std::vector<std::string> WorldFileNames(std::string_view imagePath);

}  // namespace vexlator::formats
