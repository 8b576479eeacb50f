// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"
#include "util/Geometry.h"

#include <cstdint>
#include <string_view>

namespace vexlator::formats {

/// Writes a file of points of interest for navigation devices (.OV2) into a file that the caller commits.
/// Every record is a simple one: type 2, its size, longitude and latitude in hundred-thousandths of a degree,
/// a name that ends with NUL; numbers are little-endian, names Windows-1252. Source: the published SDK
/// documentation of the format, "POI database file format".
/// @throws platform::WriteError
class Ov2Writer {
public:
    explicit Ov2Writer(platform::OutputFile& file) : file_(file) {}

    /// `degrees`: x is the longitude, y the latitude, on WGS 84. Line ends in the name become blanks.
    void AddPoint(const util::PlanePoint& degrees, std::string_view name);
    /// Characters that Windows-1252 lacks, written as "?" so far.
    std::uint64_t Replaced() const { return replaced_; }

private:
    platform::OutputFile& file_;
    std::uint64_t replaced_ = 0;
};

}  // namespace vexlator::formats
