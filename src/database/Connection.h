// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/DatabaseError.h"

#include <memory>
#include <string>
#include <string_view>

namespace vexlator::database {

/// An open connection to a database, closed at the end of its life.
class Connection {
public:
    /// Accepts connection strings of Windows too (ForThisSystem). Waits at most 15 seconds for a server.
    /// @throws DatabaseError
    explicit Connection(const std::string& connectionString);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    enum class Product { Sqlite, PostgreSql, Other };
    Product Kind() const;

    /// Real Access files and folders of dBASE tables are read-only.
    bool OnlyReads() const;

    /// Whether the driver of a real Access file has met damage in it so far.
    bool HasFoundDamage() const;

    /// Runs a statement that has no parameters and gives no rows. @throws DatabaseError
    void Execute(const std::string& sql);

    /// A table's or column's name for a statement: in the database's quotes, with inner quotes doubled.
    std::string Quoted(std::string_view identifier) const;

    /// Prepares a table before a look-up. @throws DatabaseError for a damaged dBASE table
    void Provide(std::string_view table);

private:
    friend class Statement;
    friend class Transaction;
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// Commit() keeps all changes since the start; without Commit() none are kept. Other programs may read at the
/// same time. No other program can write: in an SQLite database from the start on, in other databases from
/// LockTable() on. Both calls wait up to a minute for programs that hold the lock, then throw.
class Transaction {
public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// @param quotedTable as Connection::Quoted() or Table::Name() gives it
    void LockTable(const std::string& quotedTable);
    void Commit();

private:
    void End(bool keep);

    Connection& connection_;
    bool open_ = true;
};

}  // namespace vexlator::database
