// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/job/RecordCoordinates.h"

#include "util/Numbers.h"
#include "util/WholeNumber.h"

namespace vexlator::formats {

namespace {

constexpr std::size_t ownCoordinates = 4;
constexpr std::size_t qualityField = 8;

/// An empty field stands for 0.
bool LooksNumeric(std::string_view text) {
    bool hasOtherSigns = text.find_first_not_of("0123456789-.") != std::string_view::npos;
    return text.empty() || (!hasOtherSigns && util::IsWhollyNumber(text));
}

/// Three numbers from field `first` on.
JobPosition PointAt(std::string_view line, std::size_t first) {
    CellCursor cells(line);
    for (; first > 0; --first) cells.Next();
    JobPosition point;
    point.x = util::NumberOf(cells.Next());
    point.y = util::NumberOf(cells.Next());
    point.z = util::NumberOf(cells.Next());
    return point;
}

}  // namespace

bool IsPositionRecord(const JobTable& table, JobTable::Row row) {
    if (!table.IsPosition(row)) return false;
    if (table.Kind(row) != RecordKind::GisPosition) return true;
    return LooksNumeric(table.Field(row, ownCoordinates)) &&
           LooksNumeric(table.Field(row, ownCoordinates + 1));
}

bool IsVertexRecord(const JobTable& table, JobTable::Row row) {
    return table.IsPosition(row) &&
           (table.IsBelow(row, RecordKind::Coordinates) || IsPositionRecord(table, row));
}

JobPosition GetRecordCoordinates(const JobTable& table, JobTable::Row row) {
    if (table.IsBelow(row, RecordKind::Coordinates)) return PointAt(table.Line(row + 1), 1);
    if (table.Kind(row) == RecordKind::GisPosition) return PointAt(table.Line(row), ownCoordinates);
    return {};
}

std::string_view GetRecordQuality(const JobTable& table, JobTable::Row row) {
    return table.Kind(row) == RecordKind::GpsPosition ? table.Field(row, qualityField) : std::string_view();
}

}  // namespace vexlator::formats
