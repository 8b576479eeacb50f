// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Odbc.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::database {

/// The values of a row, as text or bytes. NULL has no data().
using Row = std::span<const std::string_view>;

/// The rows of a result, fetched in blocks into buffers that the driver fills. Values longer than their cell
/// are fetched one by one, and the cells of their column grow. A driver that cannot do that within a block
/// gives one row at a time, and every value is fetched separately. The driver for Access files needs that: it
/// takes an empty text in a buffer for the end of the rows.
class RowBuffer {
public:
    /// @param statement has been executed and must outlive this object, as must `sql`
    RowBuffer(const odbc::Handle& statement, const std::string& sql, std::size_t columns,
              std::size_t rowsPerBlock);
    RowBuffer(const RowBuffer&) = delete;
    RowBuffer& operator=(const RowBuffer&) = delete;

    /// Goes back to before the first row after another run of the statement.
    void Restart();
    bool Next();

    std::size_t ColumnCount() const { return columns_.size(); }
    const std::string& Name(std::size_t column) const { return columns_[column].name; }
    SQLSMALLINT Type(std::size_t column) const { return columns_[column].inDatabase; }
    /// The current row, valid until Next() or Restart().
    Row Current() const { return values_; }

private:
    // Clears cells, because drivers clear the rest of a cell after a value.
    static constexpr std::size_t firstCellSize = 64, largestCellSize = 4096;

    struct Column {
        std::string name;
        SQLSMALLINT inDatabase = SQL_VARCHAR, inMemory = SQL_C_CHAR;
        std::size_t cellSize = firstCellSize;
        std::size_t wantedSize = firstCellSize;  ///< from the next block on
        std::vector<char> cells;                 ///< cellSize bytes per row of the block
        std::vector<SQLLEN> lengths;  ///< length of the whole value, or SQL_NULL_DATA, or SQL_NO_TOTAL
        std::string longValue;        ///< value of the current row, if it does not fit its cell
    };
    void Describe(std::size_t index);
    void Bind(std::size_t index);
    bool FetchBlock();
    std::string_view ValueOf(std::size_t index);
    /// Fetches a value, or its beginning, if the driver has not filled the cell.
    void FetchCell(std::size_t index);
    void FetchLongValue(std::size_t index);
    void Check(SQLRETURN result) const { statement_.Check(result, sql_); }

    const odbc::Handle& statement_;
    const std::string& sql_;
    bool isBound_;  ///< the driver fills the cells of a whole block
    std::vector<Column> columns_;
    std::vector<std::string_view> values_;  ///< of the current row
    SQLULEN fetched_ = 0;
    std::size_t row_ = 0;     ///< within the block
    bool cellsGrow_ = false;  ///< before the next block
    bool atEnd_ = false;
};

}  // namespace vexlator::database
