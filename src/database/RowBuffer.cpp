// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/RowBuffer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace vexlator::database {

namespace {

bool IsBinary(SQLSMALLINT type) {
    return type == SQL_BINARY || type == SQL_VARBINARY || type == SQL_LONGVARBINARY;
}

}  // namespace

RowBuffer::RowBuffer(const odbc::Handle& statement, const std::string& sql, std::size_t columns,
                     std::size_t rowsPerBlock)
    : statement_(statement), sql_(sql), isBound_(rowsPerBlock > 1), columns_(columns), values_(columns) {
    if (isBound_) {
        Check(SQLSetStmtAttr(statement.Get(), SQL_ATTR_ROW_ARRAY_SIZE, odbc::Number(rowsPerBlock), 0));
        Check(SQLSetStmtAttr(statement.Get(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0));
    }
    for (std::size_t i = 0; i < columns; ++i) {
        columns_[i].lengths.resize(rowsPerBlock);
        Describe(i);
        Bind(i);
    }
}

void RowBuffer::Describe(std::size_t index) {
    std::array<SQLCHAR, 512> name{};
    SQLSMALLINT length = 0, type = 0, decimals = 0, nullable = 0;
    SQLULEN size = 0;
    Check(SQLDescribeCol(statement_.Get(), static_cast<SQLUSMALLINT>(index + 1), name.data(), name.size(),
                         &length, &type, &size, &decimals, &nullable));
    columns_[index].name = reinterpret_cast<const char*>(name.data());
    columns_[index].inDatabase = type;
    columns_[index].inMemory = IsBinary(type) ? SQL_C_BINARY : SQL_C_CHAR;
}

void RowBuffer::Bind(std::size_t index) {
    Column& column = columns_[index];
    column.cellSize = column.wantedSize;
    column.cells.resize(column.cellSize * column.lengths.size());
    if (!isBound_) return;
    Check(SQLBindCol(statement_.Get(), static_cast<SQLUSMALLINT>(index + 1), column.inMemory,
                     column.cells.data(), static_cast<SQLLEN>(column.cellSize), column.lengths.data()));
}

void RowBuffer::Restart() {
    fetched_ = 0;
    row_ = 0;
    atEnd_ = false;
}

bool RowBuffer::Next() {
    if (atEnd_) return false;
    if (++row_ >= fetched_ && !FetchBlock()) return false;
    for (std::size_t i = 0; i < columns_.size(); ++i) values_[i] = ValueOf(i);
    return true;
}

bool RowBuffer::FetchBlock() {
    if (std::exchange(cellsGrow_, false))
        for (std::size_t i = 0; i < columns_.size(); ++i)
            if (columns_[i].wantedSize > columns_[i].cellSize) Bind(i);
    row_ = 0;
    fetched_ = 1;
    SQLRETURN result = SQLFetch(statement_.Get());
    atEnd_ = result == SQL_NO_DATA;
    if (!atEnd_) Check(result);
    return !atEnd_;
}

void RowBuffer::FetchCell(std::size_t index) {
    Column& column = columns_[index];
    SQLLEN& length = column.lengths[0];
    SQLRETURN result = SQLGetData(statement_.Get(), static_cast<SQLUSMALLINT>(index + 1), column.inMemory,
                                  column.cells.data(), static_cast<SQLLEN>(column.cellSize), &length);
    if (result == SQL_NO_DATA)
        length = 0;  // empty text
    else
        Check(result);
}

std::string_view RowBuffer::ValueOf(std::size_t index) {
    if (!isBound_) FetchCell(index);
    const Column& column = columns_[index];
    SQLLEN length = column.lengths[row_];
    if (length == SQL_NULL_DATA) return {};
    std::size_t ending = column.inMemory == SQL_C_CHAR ? 1 : 0;
    if (length >= 0 && static_cast<std::size_t>(length) + ending <= column.cellSize)
        return {column.cells.data() + row_ * column.cellSize, static_cast<std::size_t>(length)};
    FetchLongValue(index);
    return column.longValue;
}

void RowBuffer::FetchLongValue(std::size_t index) {
    constexpr std::size_t pieceSize = std::size_t{64} << 10;
    Column& column = columns_[index];
    std::size_t ending = column.inMemory == SQL_C_CHAR ? 1 : 0;
    column.longValue.clear();
    if (isBound_)
        Check(SQLSetPos(statement_.Get(), row_ + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE));
    else
        column.longValue.assign(column.cells.data(), column.cellSize - ending);
    for (;;) {
        std::size_t got = column.longValue.size();
        column.longValue.resize(got + pieceSize);
        SQLLEN left = 0;
        SQLRETURN result = SQLGetData(statement_.Get(), static_cast<SQLUSMALLINT>(index + 1), column.inMemory,
                                      column.longValue.data() + got, pieceSize, &left);
        if (result != SQL_NO_DATA) Check(result);
        bool isEmpty = result == SQL_NO_DATA || left == SQL_NULL_DATA;
        bool isLast = left >= 0 && static_cast<std::size_t>(left) + ending <= pieceSize;
        std::size_t piece = isLast ? static_cast<std::size_t>(left) : pieceSize - ending;
        column.longValue.resize(got + (isEmpty ? 0 : piece));
        if (isEmpty || isLast) break;
    }
    std::size_t size = std::bit_ceil(std::min(column.longValue.size() + ending, largestCellSize));
    column.wantedSize = std::max(column.wantedSize, size);
    cellsGrow_ = true;
}

}  // namespace vexlator::database
