// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/fmo/FmoQuery.h"

#include "database/DatabaseError.h"
#include "database/Table.h"
#include "util/Numbers.h"

#include <algorithm>
#include <utility>

namespace vexlator::importer {

using database::Connection;
using database::Table;

namespace {

/// " WHERE E>minX AND ...": positions on the sides are outside.
std::string Condition(const std::string& east, const std::string& north,
                      const config::ImportExtentBox& extent) {
    if (!extent.IsSet()) return "";
    return " WHERE " + east + ">" + util::FormatShortest(extent.minX) + " AND " + north + ">" +
           util::FormatShortest(extent.minY) + " AND " + east + "<" + util::FormatShortest(extent.maxX) +
           " AND " + north + "<" + util::FormatShortest(extent.maxY);
}

std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ",") + name;
    return text;
}

/// Coordinates can be in text columns, which compare as text.
std::string AsNumber(const Connection& connection, const std::string& column) {
    if (connection.Kind() == Connection::Product::Other) return column;
    return "CAST(" + column + " AS DOUBLE PRECISION)";
}

bool IsAccess(const Connection& connection) {
    return connection.OnlyReads() && connection.Kind() == Connection::Product::Other;
}

/// The driver for Access files has been seen to end early.
std::optional<std::uint64_t> RowCountToProve(Connection& connection, const Table& table) {
    if (!IsAccess(connection)) return std::nullopt;
    database::Statement count(connection, "SELECT COUNT(*) FROM " + table.Name());
    count.Execute();
    if (!count.Next()) return std::nullopt;
    return static_cast<std::uint64_t>(count.Number(0));
}

}  // namespace

FmoQuery FmoQuery::Points(const database::FmoDefinition& definition, const SelectList& list,
                          const config::ImportExtentBox& extent) {
    FmoQuery query;
    query.table_ = definition.table;
    query.east_ = definition.east;
    query.north_ = definition.north;
    query.first_ = {definition.east, definition.north, definition.key};
    query.list_ = list;
    query.extent_ = extent;
    std::vector<std::string> names = query.first_;
    if (list.everything) names.emplace_back("*");
    names.insert(names.end(), list.names.begin(), list.names.end());
    query.shown_ = "SELECT " + Joined(names) + " FROM " + definition.table +
                   Condition(definition.east, definition.north, extent);
    return query;
}

FmoQuery FmoQuery::Lines(const database::FmoDefinition& definition) {
    FmoQuery query;
    query.table_ = definition.table;
    query.geometryColumn_ = definition.geometryColumn;
    query.first_ = {definition.geometryColumn, definition.key};
    query.list_.everything = true;
    query.shown_ =
        "SELECT " + definition.geometryColumn + "," + definition.key + ",* FROM " + definition.table;
    return query;
}

FmoQuery::Statement FmoQuery::For(Connection& connection) const {
    std::optional<Table> table = Table::Find(connection, table_);
    if (!table)
        throw database::DatabaseError(
            "42S02",
            "there is no table \"" + table_ + "\"" +
                (connection.HasFoundDamage() ? ", and the database is damaged: repair and compact it" : ""),
            shown_);
    std::vector<std::string> names, columns;
    auto add = [&](const Table::ColumnInfo& column, const std::string& value) {
        names.push_back(column.plain);
        columns.push_back(value);
    };
    auto addNamed = [&](const std::string& name) { add(table->Required(name), table->Column(name)); };
    std::ranges::for_each(first_, addNamed);
    std::ranges::for_each(list_.names, addNamed);
    bool leaveOut = !geometryColumn_.empty() && connection.Kind() != Connection::Product::Other;
    const auto* geometry = leaveOut ? table->FindColumn(geometryColumn_) : nullptr;
    if (list_.everything)
        for (const Table::ColumnInfo& column : table->Columns())
            add(column, &column == geometry ? "NULL" : column.quoted);
    Statement statement;
    statement.sql = "SELECT " + Joined(columns) + " FROM " + table->Name();
    statement.columns = std::move(names);
    statement.rowCount = RowCountToProve(connection, *table);
    // Only the rows of whole tables can be counted.
    if (statement.rowCount)
        statement.extent = extent_;
    else if (extent_.IsSet())
        statement.sql += Condition(AsNumber(connection, table->Column(east_)),
                                   AsNumber(connection, table->Column(north_)), extent_);
    return statement;
}

}  // namespace vexlator::importer
