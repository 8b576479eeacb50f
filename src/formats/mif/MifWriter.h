// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/TextEncoding.h"
#include "formats/mif/MifHeader.h"
#include "platform/Files.h"
#include "util/Geometry.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Writes MapInfo interchange files (.MIF with a row for each object in .MID). Source: MapInfo Data
/// Interchange Format, appendix J of the MapInfo reference manual: parts on the MIF file header, the MIF data
/// section and the MID file.
namespace vexlator::formats {

/// Writes objects and their rows into two files that the caller commits: an object, its values, EndRow(). The
/// header always names the character set of the encoding. Lines end in CR LF. Coordinates have three
/// decimals.
/// @throws platform::WriteError
class MifWriter {
public:
    MifWriter(platform::OutputFile& mif, platform::OutputFile& mid, const MifHeader& header,
              TextEncoding encoding);

    /// An object without geometry.
    void AddNone();
    void AddPoint(const util::PlanePoint& point);
    void AddPolyline(std::span<const util::PlanePoint> points);
    /// An area with one ring, written unchanged.
    void AddRegion(std::span<const util::PlanePoint> points);

    /// The next value of the row, in quotes if it contains the delimiter, a quote or a line end.
    void AddValue(std::string_view value);
    void EndRow();
    /// Number of replaced characters.
    std::uint64_t Replaced() const { return encoder_.Replaced(); }

private:
    void WriteHeader(const MifHeader& header);
    void WriteCount(std::string_view before, std::size_t count);
    void WriteCoordinates(std::string_view before, const util::PlanePoint& point);

    platform::OutputFile& mif_;
    platform::OutputFile& mid_;
    TextEncoder encoder_;
    std::string quoted_;
    bool rowBegun_ = false;
};

}  // namespace vexlator::formats
