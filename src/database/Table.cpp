// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/Table.h"

#include "platform/AsciiCase.h"

namespace vexlator::database {

namespace {

/// The tables and views that can have the name, in their first column: those whose names differ in letter
/// case only, or all. Listing all tables for each of many tables would take quadratic time.
Statement Candidates(Connection& connection, std::string_view name, std::size_t& column) {
    column = 0;
    std::string query;
    if (connection.Kind() == Connection::Product::Sqlite)
        query = "SELECT name FROM pragma_table_list(?) WHERE schema='main'";
    else if (connection.Kind() == Connection::Product::PostgreSql)
        query =
            "SELECT relname FROM pg_class WHERE lower(relname)=lower(?) AND relkind IN "
            "('r','v','m','f','p') AND pg_table_is_visible(oid)";
    if (query.empty()) {
        column = 2;
        return Statement::Tables(connection);
    }
    Statement tables(connection, query);
    tables.Execute({name});
    return tables;
}

/// "" if there is none.
std::string SpelledName(Connection& connection, std::string_view name) {
    std::string found;
    std::size_t column = 0;
    for (Statement tables = Candidates(connection, name, column); tables.Next();) {
        std::string_view candidate = tables.Text(column);
        if (candidate == name) return std::string(candidate);
        if (found.empty() && platform::SameNoCase(candidate, name)) found = candidate;
    }
    return found;
}

/// As spelled in `columns`, the list of all columns of the table. SQLite's driver reads the part of a name
/// before a full stop as a table's name.
std::vector<std::string> ColumnNames(Connection& connection, std::string_view table,
                                     const Statement& columns) {
    std::vector<std::string> names;
    if (connection.Kind() == Connection::Product::Sqlite) {
        Statement found(connection, "SELECT name FROM pragma_table_xinfo(?) WHERE hidden<>1 ORDER BY cid");
        for (found.Execute({table}); found.Next();) names.emplace_back(found.Text(0));
    }
    for (std::size_t i = names.size(); i < columns.ColumnCount(); ++i) names.push_back(columns.ColumnName(i));
    return names;
}

}  // namespace

std::optional<Table> Table::Find(Connection& connection, std::string_view name) {
    connection.Provide(name);
    std::string spelled = SpelledName(connection, name);
    if (spelled.empty()) return std::nullopt;
    Table table;
    table.name_ = connection.Quoted(spelled);
    Statement columns(connection, "SELECT * FROM " + table.name_ + " WHERE 1=0");
    columns.Execute();
    std::vector<std::string> names = ColumnNames(connection, spelled, columns);
    for (std::size_t i = 0; i < columns.ColumnCount(); ++i)
        table.columns_.push_back({names[i], connection.Quoted(names[i]), columns.TypeOf(i)});
    return table;
}

const Table::ColumnInfo* Table::FindColumn(std::string_view name) const {
    const ColumnInfo* found = nullptr;
    for (const ColumnInfo& column : columns_) {
        if (column.plain == name) return &column;
        if (!found && platform::SameNoCase(column.plain, name)) found = &column;
    }
    return found;
}

const Table::ColumnInfo& Table::Required(std::string_view name) const {
    if (const ColumnInfo* column = FindColumn(name)) return *column;
    throw DatabaseError("42S22", "the table " + name_ + " has no column \"" + std::string(name) + "\"");
}

}  // namespace vexlator::database
