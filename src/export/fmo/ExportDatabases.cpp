// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/fmo/ExportDatabases.h"

#include "database/DatabaseError.h"
#include "platform/Errors.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <utility>

namespace vexlator::exporter {

namespace {

/// A database that lies beside its definition is not missing: the person is asked whether to use it.
void MakeDatabase(const database::FmoDefinition& definition) {
    if (!database::IsDatabaseFile(definition)) return;
    std::string beside =
        util::JoinPath(util::FolderOf(definition.definitionPath), util::FileNameOf(definition.database));
    if (util::FileSize(beside) == 0) database::CreateMissingDatabase(definition);
}

/// The same for every spelling of one database: two connections to it would wait for each other. A database
/// file must not be opened to find this out: closing it would drop the locks of the connection that is open.
std::string NameOf(const database::FmoDefinition& definition, const std::string& connectionString) {
    if (!database::IsDatabaseFile(definition)) return connectionString;
    return platform::RealPath(definition.database);
}

/// One export after the other, as in SQLite, where one program writes at a time: two could lock tables in
/// opposite order, and tables that are still to be made cannot be locked. The number is ours and means
/// nothing.
void KeepOthersOut(database::Connection& connection) {
    if (connection.Kind() != database::Connection::Product::PostgreSql) return;
    connection.Execute("SET LOCAL lock_timeout = '600s'");
    connection.Execute("SELECT pg_advisory_xact_lock(7360912)");
}

}  // namespace

std::string ExportDatabases::Add(database::FmoDefinition& definition) {
    MakeDatabase(definition);
    std::string text = database::BuildConnectionString(run_, definition);
    std::string name = NameOf(definition, text);
    byName_.try_emplace(name, Database{definition, text, {}});
    return name;
}

bool ExportDatabases::OpenAll() {
    for (auto& [name, each] : byName_) {
        Open& open = each.open;
        open.connection = database::OpenFmoConnection(run_, each.definition, each.connectionString);
        if (!open.connection) return false;
        try {
            open.transaction = std::make_unique<database::Transaction>(*open.connection);
            KeepOthersOut(*open.connection);
        } catch (const database::DatabaseError& error) {
            throw platform::WriteError(platform::NativePath(each.definition.database),
                                       "table " + each.definition.table + ": " + error.what());
        }
    }
    return true;
}

void ExportDatabases::Commit() {
    for (auto& [name, each] : byName_) each.open.transaction->Commit();
}

}  // namespace vexlator::exporter
