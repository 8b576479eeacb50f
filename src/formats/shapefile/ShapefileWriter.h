// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"
#include "util/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

/// Writes shapefiles (.SHP with its index .SHX). Source: ESRI Shapefile Technical Description, July 1998,
/// sections "Organization of the Main File", "Organization of the Index File" and "Main File Record
/// Contents".
namespace vexlator::formats {

/// Writes points, lines and areas of one part into two files that the caller commits. The header's shape type
/// depends on the records so far: a point makes it 1, a line 3 unless it is 5, an area 5. The header's box
/// omits points with a coordinate of exactly 0, because nobody measured them.
/// @throws platform::WriteError, also for a file above 2 GB
class ShapefileWriter {
public:
    ShapefileWriter(platform::OutputFile& shp, platform::OutputFile& shx);

    void AddPoint(const util::PlanePoint& point);
    void AddPolyline(std::span<const util::PlanePoint> points) { AddPoly(3, points); }
    /// Writes the ring unchanged. The caller closes it.
    void AddPolygon(std::span<const util::PlanePoint> points) { AddPoly(5, points); }
    /// Writes both headers.
    void Finish();

    std::uint32_t RecordCount() const { return records_; }

private:
    struct Box {
        double minX = 9999999, minY = 9999999, maxX = -9999999, maxY = -9999999;
        void Include(const util::PlanePoint& point);
    };

    void AddPoly(std::int32_t type, std::span<const util::PlanePoint> points);
    /// Record header and index entry; `words` is the content length in 16-bit words.
    char* BeginRecord(std::size_t headerBytes, std::uint64_t words);
    std::string Header(std::uint64_t fileSize) const;

    platform::OutputFile& shp_;
    platform::OutputFile& shx_;
    Box box_;
    std::int32_t type_ = 0;
    std::uint32_t records_ = 0;
};

}  // namespace vexlator::formats
