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

/// Bytes other than text.
struct Blob {
    std::string_view bytes;
};

/// A parameter's value. nullptr is NULL; text is UTF-8. Text and bytes belong to the caller and must live
/// until the call with the value returns.
using Value = std::variant<std::nullptr_t, std::string_view, std::int64_t, double, platform::DateTime, Blob>;

/// `Float` is a binary floating-point number, `Number` a whole or decimal one.
enum class ColumnType { Text, Number, Float, Bytes, Other };

/// One SQL statement, prepared once and run any number of times with different values for each "?". All
/// values reach the database as parameters, never as text of the statement. Columns are numbered from 0.
/// Every member throws DatabaseError with the statement.
class Statement {
public:
    Statement(Connection& connection, std::string sql);
    /// For many rows: a thread of its own fetches rows while the caller uses earlier ones. The statement then
    /// needs the connection for itself; no other statement of the connection may be alive. An error in the
    /// rows is thrown at the row's place.
    Statement(std::unique_ptr<Connection> connection, std::string sql);
    ~Statement();
    Statement(Statement&&) noexcept;

    /// The list of the database's tables and views; column 2 is the name.
    static Statement Tables(Connection& connection);

    /// Runs it with one value for each "?". Drops the rows of an earlier run.
    void Execute(std::span<const Value> values);
    void Execute(std::initializer_list<Value> values = {}) {
        Execute(std::span<const Value>(values.begin(), values.size()));
    }
    /// Number of rows that the last run inserted, changed or deleted.
    std::int64_t RowsAffected() const;

    /// Columns of the result; 0 for a statement that gives no rows.
    std::size_t ColumnCount() const;
    const std::string& ColumnName(std::size_t column) const;
    /// The driver's type of the column. Values in SQLite can have other types.
    ColumnType TypeOf(std::size_t column) const;

    /// Makes Next() throw after the last row if the number of rows differs: some drivers have been seen to
    /// end early. Without a number it does not throw.
    void ExpectRows(std::optional<std::uint64_t> count);

    /// Whether the driver has met damage in the database: Next() throws after the last row then.
    bool HasFoundDamage() const;

    /// Goes to the next row, at first to the first; false after the last. Rows are not held in memory.
    bool Next();

    // The current row, valid until Next() or Execute().
    bool IsNull(std::size_t column) const;
    /// The value as text, for a binary column as bytes; "" for NULL. Date-times read 2024-03-05 14:07:00.
    std::string_view Text(std::size_t column) const;
    /// The bytes of a value in a column of any declared type. If the driver gives bytes as the text X'0A1B',
    /// the bytes that the text means.
    std::string Bytes(std::size_t column) const;
    /// The value as a number by the rules of util::NumberOf; 0 for NULL.
    double Number(std::size_t column) const;

private:
    struct Impl;
    explicit Statement(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

}  // namespace vexlator::database
