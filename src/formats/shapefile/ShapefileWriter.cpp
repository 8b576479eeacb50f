// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/shapefile/ShapefileWriter.h"

#include "formats/Bytes.h"

#include <algorithm>

namespace vexlator::formats {

namespace {

constexpr std::size_t mainHeader = 100;
constexpr std::uint64_t largestFile = 0x7FFFFFFF;

/// The bounding box of some points; all 0 without points.
struct RecordBox {
    explicit RecordBox(std::span<const util::PlanePoint> points) {
        if (points.empty()) return;
        minX = maxX = points[0].x;
        minY = maxY = points[0].y;
        for (const util::PlanePoint& p : points) {
            minX = std::min(minX, p.x);
            minY = std::min(minY, p.y);
            maxX = std::max(maxX, p.x);
            maxY = std::max(maxY, p.y);
        }
    }
    double minX = 0, minY = 0, maxX = 0, maxY = 0;
};

}  // namespace

void ShapefileWriter::Box::Include(const util::PlanePoint& point) {
    if (point.x == 0 || point.y == 0) return;
    minX = std::min(minX, point.x);
    minY = std::min(minY, point.y);
    maxX = std::max(maxX, point.x);
    maxY = std::max(maxY, point.y);
}

ShapefileWriter::ShapefileWriter(platform::OutputFile& shp, platform::OutputFile& shx)
    : shp_(shp), shx_(shx) {
    std::string room(mainHeader, '\0');
    shp_.Write(room);
    shx_.Write(room);
}

char* ShapefileWriter::BeginRecord(std::size_t headerBytes, std::uint64_t words) {
    std::uint64_t offset = shp_.Size();
    if (offset + 8 + words * 2 > largestFile)
        throw platform::WriteError(shp_.Name(), "the shapefile would be larger than 2 GB");
    char* entry = shx_.Reserve(8);
    PutBig(entry, static_cast<std::uint32_t>(offset / 2));
    PutBig(entry + 4, static_cast<std::uint32_t>(words));
    shx_.Advance(8);
    char* record = shp_.Reserve(headerBytes);
    PutBig(record, ++records_);
    PutBig(record + 4, static_cast<std::uint32_t>(words));
    return record + 8;
}

void ShapefileWriter::AddPoint(const util::PlanePoint& point) {
    char* content = BeginRecord(28, 10);
    PutLittle(content, std::int32_t{1});
    PutLittle(content + 4, point.x);
    PutLittle(content + 12, point.y);
    shp_.Advance(28);
    box_.Include(point);
    type_ = 1;
}

void ShapefileWriter::AddPoly(std::int32_t type, std::span<const util::PlanePoint> points) {
    char* content = BeginRecord(56, (48 + 16 * std::uint64_t{points.size()}) / 2);
    RecordBox box(points);
    PutLittle(content, type);
    PutLittle(content + 4, box);
    PutLittle(content + 36, std::int32_t{1});
    PutLittle(content + 40, static_cast<std::uint32_t>(points.size()));
    PutLittle(content + 44, std::int32_t{0});
    shp_.Advance(56);
    shp_.Write(std::as_bytes(points));
    for (const util::PlanePoint& point : points) box_.Include(point);
    if (type_ != 5) type_ = type;
}

std::string ShapefileWriter::Header(std::uint64_t fileSize) const {
    std::string header(mainHeader, '\0');
    PutBig(header.data(), 9994);
    PutBig(header.data() + 24, static_cast<std::uint32_t>(fileSize / 2));
    PutLittle(header.data() + 28, std::int32_t{1000});
    PutLittle(header.data() + 32, type_);
    PutLittle(header.data() + 36, box_);
    for (std::size_t i = 0; i < 4; ++i) PutLittle(header.data() + 68 + i * 8, i < 2 ? 9999999.0 : -9999999.0);
    return header;
}

void ShapefileWriter::Finish() {
    shp_.WriteAt(0, Header(shp_.Size()));
    shx_.WriteAt(0, Header(shx_.Size()));
}

}  // namespace vexlator::formats
