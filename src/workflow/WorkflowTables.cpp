// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "workflow/WorkflowTables.h"

#include "util/Text.h"

namespace vexlator::workflow {

using database::Connection;
using database::Table;

namespace {

/// $text and $key stand for the column types of text and of the texts that identify a job.
constexpr std::string_view actionColumns =
    R"("Project" $key, "Job" $key, "Engineer" $key, "ActionDesc" $text, "DateStamp" TIMESTAMP, "ActionedBy" $text)";
constexpr std::string_view headerColumns =
    R"("Engineer" $key, "Project" $key, "Job" $key, "Current Status" $text, "LastChange" TIMESTAMP,)"
    R"( UNIQUE ("Engineer", "Project", "Job"))";

std::string WithTypes(std::string_view columns, Connection::Product product) {
    bool other = product == Connection::Product::Other;
    std::string_view text = other ? "VARCHAR(255)" : "TEXT";
    // Folder names are the key. Names that differ only in letter case are equal.
    std::string_view key = product == Connection::Product::Sqlite ? "TEXT COLLATE NOCASE" : text;
    return util::ReplaceAll(util::ReplaceAll(columns, "$key", key), "$text", text);
}

void Create(Connection& connection, const std::string& name, std::string_view columns) {
    if (Table::Find(connection, name)) return;
    connection.Execute("CREATE TABLE " + connection.Quoted(name) + " (" +
                       WithTypes(columns, connection.Kind()) + ")");
}

void CreateIndex(Connection& connection) {
    if (connection.Kind() == Connection::Product::Other) return;
    connection.Execute(
        R"(CREATE INDEX IF NOT EXISTS "ActionTblJob" ON "ActionTbl" ("Job", "Project", "Engineer"))");
}

}  // namespace

void CreateMissingTables(Connection& connection) {
    if (Table::Find(connection, "ActionTbl") && Table::Find(connection, "JobHdr")) return;
    database::Transaction transaction(connection);
    if (connection.Kind() == Connection::Product::PostgreSql) {
        // There is no table to lock yet. The number is ours and has no meaning.
        connection.Execute("SELECT pg_advisory_xact_lock(7360911)");
    }
    bool newLog = !Table::Find(connection, "ActionTbl");
    Create(connection, "ActionTbl", actionColumns);
    if (newLog) CreateIndex(connection);
    Create(connection, "JobHdr", headerColumns);
    transaction.Commit();
}

Table TableOf(Connection& connection, const std::string& name) {
    if (auto table = Table::Find(connection, name)) return *table;
    throw database::DatabaseError("42S02", "there is no such table", "SELECT * FROM " + name);
}

}  // namespace vexlator::workflow
