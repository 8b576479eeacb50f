// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/job/SupersededRecords.h"

#include "formats/job/RowChains.h"
#include "util/Numbers.h"

#include <array>
#include <charconv>

namespace vexlator::formats {

namespace {

using Row = JobTable::Row;

/// The position records by point number, the last of each number first.
RowChains PositionsByNumber(const JobTable& table) {
    RowChains positions(table.RowCount());
    for (Row row = 0; row < table.RowCount(); ++row)
        if (table.IsPosition(row)) positions.AddInFront(table.Field(row, 2), row);
    return positions;
}

/// Removes the newest version of a superseded record from the chains.
Row TakeNewestVersion(RowChains& positions, const JobTable& table, Row row) {
    std::array<char, 24> digits;
    char* end = std::to_chars(digits.begin(), digits.end(), util::IntegerOf(table.Field(row, 2))).ptr;
    std::uint32_t chain = positions.Texts().Find({digits.data(), end});
    if (chain == TextIndex::none) return JobTable::noRow;
    Row newest = positions.First(chain);
    if (newest == JobTable::noRow || newest < row) return JobTable::noRow;
    positions.RemoveFirst(chain);
    return newest;
}

void Delete(JobTable& table, Row row) {
    bool isPoint = table.Field(row, 1) == "P";
    if (isPoint && table.IsAbove(row, RecordKind::Attributes)) table.MarkDone(row - 1);
    if (table.IsBelow(row, RecordKind::Coordinates)) table.MarkDone(row + 1);
    table.MarkDone(row);
}

void MoveUp(JobTable& table, Row from, Row to) {
    table.Copy(from, to);
    if (table.IsBelow(to, RecordKind::Coordinates) && table.IsBelow(from, RecordKind::Coordinates))
        table.Copy(from + 1, to + 1);
    table.MarkDone(from);
}

bool HasSuperseded(const JobTable& table) {
    for (Row row = 0; row < table.RowCount(); ++row)
        if (table.Kind(row) == RecordKind::Superseded) return true;
    return false;
}

}  // namespace

void ResolveSupersededRecords(JobTable& table) {
    if (!HasSuperseded(table)) return;
    RowChains positions = PositionsByNumber(table);
    for (Row row = 0; row < table.RowCount(); ++row) {
        if (table.Kind(row) != RecordKind::Superseded) continue;
        Row newest = TakeNewestVersion(positions, table, row);
        if (newest == JobTable::noRow)
            Delete(table, row);
        else
            MoveUp(table, newest, row);
    }
}

}  // namespace vexlator::formats
