// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

/// Shapefiles (.SHP with its index .SHX), read from bytes. Layout facts: the published ESRI shapefile
/// description. Of the M and Z variants x and y are read.
namespace vexlator::formats {

enum class ShapeClass { Null, Point, Polyline, Polygon, Unknown };

/// One record of a shapefile, checked: every part lies within the points and every point within the file.
class ShapeRecord {
public:
    std::int32_t number = 0;  ///< as the record says; it selects the row of the attribute table
    std::int32_t type = 0;
    ShapeClass shapeClass = ShapeClass::Unknown;
    std::size_t offset = 0;  ///< byte of the record's header in the .SHP file
    std::size_t partCount = 0;
    std::size_t pointCount = 0;

    util::PlanePoint Point() const;
    std::size_t PartBegin(std::size_t part) const;
    std::size_t PartEnd(std::size_t part) const;
    /// Copies the points from `begin` on into `target`.
    void CopyPoints(std::size_t begin, std::span<util::PlanePoint> target) const;

private:
    friend class ShapefileReader;
    std::span<const std::byte> parts_, points_;
};

/// Walks the records in the order of the index.
class ShapefileReader {
public:
    /// Both files' bytes outlive the reader.
    ShapefileReader(std::span<const std::byte> shp, std::span<const std::byte> shx)
        : shp_(shp), shx_(shx), recordCount_(CountEntries()) {}

    /// Reads the next record; false at the end of the index or at an index entry of 0.
    /// @throws platform::ReadError without a file name: byte, record and reason
    bool Next(ShapeRecord& record);
    /// Entries of the index: up to where its header says that the file ends, where that lies within it, since
    /// writers that shorten a file in place leave old entries behind its end; else up to the end of the
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
