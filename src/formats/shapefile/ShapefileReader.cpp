// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/shapefile/ShapefileReader.h"

#include "formats/Bytes.h"
#include "platform/Errors.h"

#include <cstring>

namespace vexlator::formats {

using platform::ReadError;

namespace {

constexpr std::size_t fileHeader = 100;
constexpr std::size_t indexEntry = 8;
constexpr std::size_t recordHeader = 8;
constexpr std::size_t pointSize = 16;
constexpr std::size_t polyHeader = 40;  ///< box, number of parts, number of points

ShapeClass ClassOf(std::int32_t type) {
    switch (type) {
        case 0:
            return ShapeClass::Null;
        case 1:
        case 11:
        case 21:
            return ShapeClass::Point;
        case 3:
        case 13:
        case 23:
            return ShapeClass::Polyline;
        case 5:
        case 15:
        case 25:
            return ShapeClass::Polygon;
        default:
            return ShapeClass::Unknown;
    }
}

}  // namespace

util::PlanePoint ShapeRecord::Point() const {
    return {LittleAt<double>(points_, 0), LittleAt<double>(points_, 8)};
}

std::size_t ShapeRecord::PartBegin(std::size_t part) const {
    return LittleAt<std::uint32_t>(parts_, part * sizeof(std::uint32_t));
}

std::size_t ShapeRecord::PartEnd(std::size_t part) const {
    return part + 1 < partCount ? PartBegin(part + 1) : pointCount;
}

void ShapeRecord::CopyPoints(std::size_t begin, std::span<util::PlanePoint> target) const {
    static_assert(sizeof(util::PlanePoint) == pointSize);
    if (!target.empty())
        std::memcpy(static_cast<void*>(target.data()), points_.data() + begin * pointSize,
                    target.size_bytes());
}

std::size_t ShapefileReader::CountEntries() const {
    if (shx_.size() < fileHeader) return 0;
    std::size_t announced = std::size_t{static_cast<std::uint32_t>(BigAt(shx_, 24))} * 2;
    bool plausible = announced >= fileHeader && announced < shx_.size();
    return ((plausible ? announced : shx_.size()) - fileHeader) / indexEntry;
}

bool ShapefileReader::Next(ShapeRecord& record) {
    if (entry_ >= recordCount_) return false;
    auto words = static_cast<std::uint32_t>(BigAt(shx_, fileHeader + entry_ * indexEntry));
    if (words == 0) return false;
    ++entry_;
    record = ShapeRecord{};
    record.offset = std::size_t{words} * 2;
    ReadShape(record);
    return true;
}

void ShapefileReader::Damaged(const ShapeRecord& record, const std::string& reason) const {
    throw ReadError("", ReadError::AtByte(record.offset) + ", record " + std::to_string(entry_), reason);
}

void ShapefileReader::ReadShape(ShapeRecord& record) {
    constexpr std::size_t least = recordHeader + sizeof(std::int32_t);
    if (record.offset > shp_.size() || shp_.size() - record.offset < least)
        Damaged(record,
                "the index points past the end of the file (" + std::to_string(shp_.size()) + " bytes)");
    record.number = BigAt(shp_, record.offset);
    record.type = LittleAt<std::int32_t>(shp_, record.offset + recordHeader);
    record.shapeClass = ClassOf(record.type);
    std::span<const std::byte> body = shp_.subspan(record.offset + least);
    if (record.shapeClass == ShapeClass::Point) {
        if (body.size() < pointSize)
            Damaged(record, "a point needs 16 bytes, " + std::to_string(body.size()) + " are left");
        record.pointCount = 1;
        record.points_ = body.first(pointSize);
    } else if (record.shapeClass == ShapeClass::Polyline || record.shapeClass == ShapeClass::Polygon) {
        ReadPoly(record, body);
    }
    Consume(record, least + record.parts_.size() + record.points_.size());
    CheckFinite(record);
}

void ShapefileReader::ReadPoly(ShapeRecord& record, std::span<const std::byte> body) {
    if (body.size() < polyHeader)
        Damaged(record,
                "a shape needs 40 bytes before its points, " + std::to_string(body.size()) + " are left");
    record.partCount = LittleAt<std::uint32_t>(body, 32);
    record.pointCount = LittleAt<std::uint32_t>(body, 36);
    std::size_t left = body.size() - polyHeader;
    if (record.partCount > left / sizeof(std::uint32_t))
        Damaged(record, std::to_string(record.partCount) + " parts announced, " + std::to_string(left) +
                            " bytes left");
    std::size_t partBytes = record.partCount * sizeof(std::uint32_t);
    left -= partBytes;
    if (record.pointCount > left / pointSize)
        Damaged(record, std::to_string(record.pointCount) + " points announced, " + std::to_string(left) +
                            " bytes left");
    record.parts_ = body.subspan(polyHeader, partBytes);
    record.points_ = body.subspan(polyHeader + partBytes, record.pointCount * pointSize);
    CheckParts(record);
}

void ShapefileReader::CheckParts(const ShapeRecord& record) const {
    for (std::size_t part = 0; part < record.partCount; ++part)
        if (record.PartBegin(part) > record.PartEnd(part))
            Damaged(record, "part " + std::to_string(part + 1) + " starts at point " +
                                std::to_string(record.PartBegin(part)) + " and ends at point " +
                                std::to_string(record.PartEnd(part)));
}

void ShapefileReader::CheckFinite(const ShapeRecord& record) const {
    // Infinities and NaN have all bits of the exponent set.
    constexpr std::uint64_t exponent = 0x7FF0000000000000;
    bool finite = true;
    for (std::size_t at = 0; at < record.points_.size(); at += sizeof(double))
        finite &= (LittleAt<std::uint64_t>(record.points_, at) & exponent) != exponent;
    if (!finite) Damaged(record, "a coordinate is not a number");
}

/// An index can name one record many times, and so turn a small file into a huge drawing. The total of
/// records without overlap never exceeds the file.
void ShapefileReader::Consume(const ShapeRecord& record, std::size_t size) {
    consumed_ += size;
    if (consumed_ > shp_.size()) Damaged(record, "records overlap");
}

}  // namespace vexlator::formats
