// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <sqlite3.h>
#include <string>
#include <string_view>

/// For the files of this folder only: an SQLite database and its statements, with errors as exceptions.
namespace vexlator::background {

class SqliteStatement;

class Sqlite {
public:
    /// Opens or makes the file of that native path; "" is one on disk that goes with the object.
    /// @throws platform::WriteError: path and reason, as from every member and every statement
    explicit Sqlite(const std::string& native);
    ~Sqlite();
    Sqlite(const Sqlite&) = delete;
    Sqlite& operator=(const Sqlite&) = delete;

    void Execute(const char* statements);
    /// Rows that the last statement changed.
    int Changes() const { return sqlite3_changes(database_); }
    [[noreturn]] void Fail(const std::string& reason) const;

private:
    friend class SqliteStatement;
    void Require(int result, int expected = SQLITE_OK) const;

    std::string name_;
    sqlite3* database_ = nullptr;
};

class SqliteStatement {
public:
    SqliteStatement(Sqlite& database, const char* text);
    ~SqliteStatement() { sqlite3_finalize(statement_); }
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    /// Parameters are counted from 1, and stay until they are bound anew. What is bound has to live until the
    /// statement has run.
    SqliteStatement& Bind(int parameter, std::string_view text);
    SqliteStatement& Bind(int parameter, std::int64_t number);
    SqliteStatement& Bind(int parameter, std::span<const std::byte> bytes);
    SqliteStatement& BindNull(int parameter);
    /// Performs a statement without rows.
    void Run();
    /// The next row; false behind the last one, and the statement can begin anew.
    bool Step();
    /// Of the current row, columns from 0.
    std::string_view Text(int column) const;
    std::int64_t Number(int column) const { return sqlite3_column_int64(statement_, column); }
    std::span<const std::byte> Bytes(int column) const;

private:
    Sqlite& database_;
    sqlite3_stmt* statement_ = nullptr;
};

}  // namespace vexlator::background
