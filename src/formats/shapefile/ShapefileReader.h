// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

/// Reads shapefiles (.SHP with its index .SHX) from bytes. Source: ESRI Shapefile Technical Description, July
/// 1998, sections "Organization of the Main File", "Organization of the Index File" and "Main File Record
/// Contents". The M and Z variants give x and y.
namespace vexlator::formats {

enum class ShapeClass { Null, Point, Polyline, Polygon, Unknown };

/// One record of a shapefile, checked: every part is within the points and every point within the file.
class ShapeRecord {
public:
    std::int32_t number = 0;  ///< as in the record; it selects the row of the attribute table
    std::int32_t type = 0;
    ShapeClass shapeClass = ShapeClass::Unknown;
    std::size_t offset = 0;  ///< offset of the record's header in the .SHP file
    std::size_t partCount = 0;
    std::size_t pointCount = 0;

    util::PlanePoint Point() const;
    std::size_t PartBegin(std::size_t part) const;
    std::size_t PartEnd(std::size_t part) const;
    /// Copies points, from `begin` on, into `target`.
    void CopyPoints(std::size_t begin, std::span<util::PlanePoint> target) const;

private:
    friend class ShapefileReader;
    std::span<const std::byte> parts_, points_;
};

/// Reads the records in the order of the index.
class ShapefileReader {
public:
    /// Both files' bytes must outlive the reader.
    ShapefileReader(std::span<const std::byte> shp, std::span<const std::byte> shx)
        : shp_(shp), shx_(shx), recordCount_(CountEntries()) {}

    /// Reads the next record; false at the end of the index or at an index entry of 0.
    /// @throws platform::ReadError without a file name: byte, record and reason
    bool Next(ShapeRecord& record);
    /// Number of entries of the index. They end at the file length in its header, if that is within the file,
    /// because writers that shorten a file in place leave old entries after its end. Else they end with the
    /// bytes.
    std::size_t RecordCount() const { return recordCount_; }
    std::size_t ShpSize() const { return shp_.size(); }

private:
    std::size_t CountEntries() const;
    void ReadShape(ShapeRecord& record);
    void ReadPoly(ShapeRecord& record, std::span<const std::byte> body);
    void CheckParts(const ShapeRecord& record) const;
    void CheckFinite(const ShapeRecord& record) const;
    void Consume(const ShapeRecord& record, std::size_t size);
    [[noreturn]] void Damaged(const ShapeRecord& record, const std::string& reason) const;

    std::span<const std::byte> shp_, shx_;
    std::size_t recordCount_;
    std::size_t entry_ = 0;
    std::uint64_t consumed_ = 0;
};

}  // namespace vexlator::formats
