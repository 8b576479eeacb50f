// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// Job files of the field device: one text line per record, with fields separated by commas and numbered from
/// 0. There are no quotes. A comma inside a value is written as ";;". Field 0 gives the kind of record:
///
///     $GIS,type,point number,code or feature ID,x,y,z       a position with its coordinates
///     $GPS,type,point number,code or feature ID,,,,,quality a position measured by GPS
///     $...,type,point number,code or feature ID             any other position
///     =...,x,y,z                                            coordinates of the position in the line above
///      DB,point number or feature ID,value,value...         attributes (a blank stands before DB)
///     *...,type,point number,...                            a record that was edited or deleted later
///     CO,feature ID,Close                                   a command
///
/// Type P is a point with its feature code, A a vertex of an area, any other type a vertex of a line. A
/// feature ID is the feature code and an instance number in parentheses, as in FENCE(3).
namespace vexlator::formats {

enum class RecordKind : std::uint8_t {
    GisPosition,
    GpsPosition,
    OtherPosition,
    Coordinates,
    Attributes,
    Superseded,
    Command,
    Other,
    Done  ///< used, deleted or moved up: ignored from now on
};

/// The records of one job file in file order.
class JobTable {
public:
    using Row = std::uint32_t;
    static constexpr Row noRow = 0xFFFFFFFF;

    /// `text` is not copied and must outlive the table. Of neighbouring lines that are not records only one
    /// is kept, because they only separate records.
    /// @throws platform::ReadError: a line of more than longestLine, or more lines than a row number can
    /// express
    explicit JobTable(std::string_view text = {});

    Row RowCount() const { return static_cast<Row>(rows_.size()); }
    /// The largest number of fields in a line, and that line's number from 1.
    std::size_t Width() const { return width_; }
    std::uint64_t WidestLine() const { return widestLine_; }

    RecordKind Kind(Row row) const { return rows_[row].kind; }
    bool IsPosition(Row row) const { return rows_[row].kind <= RecordKind::OtherPosition; }
    bool IsBelow(Row row, RecordKind kind) const {
        return row + 1 < RowCount() && rows_[row + 1].kind == kind;
    }
    bool IsAbove(Row row, RecordKind kind) const { return row > 0 && rows_[row - 1].kind == kind; }
    std::string_view Line(Row row) const { return {rows_[row].text, rows_[row].size}; }
    /// The number of the row's line, from 1. It is found by counting.
    std::uint64_t LineNumber(Row row) const;
    /// Empty if the line has fewer fields.
    std::string_view Field(Row row, std::size_t index) const;

    void MarkDone(Row row) { rows_[row].kind = RecordKind::Done; }
    void Copy(Row from, Row to) { rows_[to] = rows_[from]; }

private:
    struct Record {
        const char* text;
        std::uint32_t size;
        RecordKind kind;
    };
    void Append(std::string_view line, std::uint64_t number);

    std::string_view text_;
    std::vector<Record> rows_;
    std::size_t width_ = 0;
    std::uint64_t widestLine_ = 0;
};

/// Gives the cells of a line one after the other, then empty ones.
class CellCursor {
public:
    explicit CellCursor(std::string_view line) : left_(line) {}
    bool AtEnd() const { return atEnd_; }
    std::string_view Next();

private:
    std::string_view left_;
    bool atEnd_ = false;
};

}  // namespace vexlator::formats
