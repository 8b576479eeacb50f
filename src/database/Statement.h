// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Connection.h"
#include "platform/Clock.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace vexlator::database {

/// Bytes that are not text.
struct Blob {
    std::string_view bytes;
};

/// A parameter's value. nullptr is NULL; text is UTF-8. Text and bytes belong to the caller and have to live
/// only until the call that takes the value returns.
using Value = std::variant<std::nullptr_t, std::string_view, std::int64_t, double, platform::DateTime, Blob>;

enum class ColumnType { Text, Number, Bytes, Other };

/// One statement of SQL, prepared once and run as often as wanted, with other values each time for the "?" in
/// it. All values reach the database as parameters, never as text of the statement.
/// Columns are numbered from 0. Every member throws DatabaseError, which carries the statement.
class Statement {
public:
    Statement(Connection& connection, std::string sql);
    /// For many rows: a thread of its own fetches them while the caller uses those before. The statement has
    /// the connection to itself for that; no other of the connection may be alive. An error among the rows
    /// is thrown where the row would have come.
    Statement(std::unique_ptr<Connection> connection, std::string sql);
    ~Statement();
    Statement(Statement&&) noexcept;

    /// The list of the database's tables and views; column 2 is the name.
    static Statement Tables(Connection& connection);

    /// Runs it with one value for each "?". Rows of an earlier run are dropped.
    void Execute(std::span<const Value> values);
    void Execute(std::initializer_list<Value> values = {}) {
        Execute(std::span<const Value>(values.begin(), values.size()));
    }
    /// Rows that the last run inserted, changed or deleted.
    std::int64_t RowsAffected() const;

    /// Columns of the result; 0 for a statement that gives no rows.
    std::size_t ColumnCount() const;
    const std::string& ColumnName(std::size_t column) const;
    /// What the driver takes the column's values for; SQLite's values may be of other kinds all the same.
    ColumnType TypeOf(std::size_t column) const;

    /// Has Next() throw after the last row unless there were this many: for drivers that have been seen to
    /// end early. Without a number it does not.
    void ExpectRows(std::optional<std::uint64_t> count);

    /// Goes to the next row, at first to the first; false after the last. Rows are not held in memory.
    bool Next();

    // The current row, valid until Next() or Execute().
    bool IsNull(std::size_t column) const;
    /// The value as text, the bytes of a binary column; "" for NULL. Date-times read 2024-03-05 14:07:00.
    std::string_view Text(std::size_t column) const;
    /// The bytes of a value in a column that may be declared as anything: where the driver gives bytes as the
    /// text X'0A1B', what these stand for.
    std::string Bytes(std::size_t column) const;
    /// The value as a number by the rules of util::NumberOf; 0 for NULL.
    double Number(std::size_t column) const;

private:
    struct Impl;
    explicit Statement(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

}  // namespace vexlator::database
