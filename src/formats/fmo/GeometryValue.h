// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The packed geometry value in which database tables hold a line: 2N single-precision numbers (IEEE 754,
/// little-endian), then one byte 0. Number 0 is N, the count of vertices plus one; number 1 is 0; numbers 2k
/// and 2k+1 are east and north of vertex k, from k = 1. Single precision keeps about seven digits.
namespace vexlator::formats {

/// Whether a line with these ends is closed already: they lie nearer to each other than 0.001 drawing units.
bool AreClosed(const util::PlanePoint& first, const util::PlanePoint& last);

/// Packs a line. With `close` its first point is repeated at the end, unless the line is closed already: then
/// `close` is cleared.
std::string vArraytoBLOB(std::span<const util::PlanePoint> points, bool& close);
/// The same into a buffer that is used again and again.
void vArraytoBLOB(std::span<const util::PlanePoint> points, bool& close, std::string& value);

/// The numbers of a value: all bytes but the last, as numbers; those that the bytes do not fill are 0.
std::vector<float> BLOBtoNodeMemory(std::string_view value);

/// The vertices of a value.
/// @throws platform::ReadError without a file name: vertices that the value has no room for, coordinates that
/// are no numbers
std::vector<util::PlanePoint> BlobToVertexList(std::string_view value);

}  // namespace vexlator::formats
