// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The packed geometry value of a line in database tables: 2N single-precision numbers (IEEE 754,
/// little-endian), then one byte 0. Number 0 is N, the number of vertices plus one. Number 1 is 0. Numbers 2k
/// and 2k+1 are east and north of vertex k, from k = 1. Single precision keeps about seven digits.
namespace vexlator::formats {

/// Whether a line with these ends is already closed: their distance is below 0.001 drawing units.
bool AreClosed(const util::PlanePoint& first, const util::PlanePoint& last);

/// Packs a line. With `close`, its first point is repeated at the end. If the line is already closed, `close`
/// is cleared instead.
std::string vArraytoBLOB(std::span<const util::PlanePoint> points, bool& close);
/// The same into a reusable buffer.
void vArraytoBLOB(std::span<const util::PlanePoint> points, bool& close, std::string& value);

/// The numbers of a value: all its bytes but the last. Incomplete numbers are 0.
std::vector<float> BLOBtoNodeMemory(std::string_view value);

/// The vertices of a value.
/// @throws platform::ReadError without a file name: more vertices than the value can hold, coordinates that
/// are not numbers
std::vector<util::PlanePoint> BlobToVertexList(std::string_view value);

}  // namespace vexlator::formats
