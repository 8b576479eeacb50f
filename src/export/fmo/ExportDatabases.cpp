// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/fmo/ExportDatabases.h"

#include "database/ConnectionString.h"
#include "database/DatabaseError.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <utility>

namespace vexlator::exporter {

namespace {

/// A database beside its definition is not missing: the user is asked whether to use it.
bool IsMissing(const database::FmoDefinition& definition) {
    if (!database::IsDatabaseFile(definition) || util::FileSize(definition.database) > 0) return false;
    std::string beside =
        util::JoinPath(util::FolderOf(definition.definitionPath), util::FileNameOf(definition.database));
    return util::FileSize(beside) == 0;
}

/// The same text for every spelling of a database, because two connections to one database would wait for
/// each other. This must not open the database file, because closing it would drop the locks of the other
/// connection.
std::string NameOf(const database::FmoDefinition& definition, const std::string& connectionString) {
    if (!database::IsDatabaseFile(definition)) return connectionString;
    std::string real = platform::RealPath(definition.database);
    if (!real.empty()) return real;
    return platform::RealPath(util::FolderOf(definition.database)) + "/" +
           platform::LowerAscii(util::FileNameOf(definition.database));
}

/// Allows one export at a time, as in SQLite, where one program writes at a time. Two could lock tables in
/// opposite order, and tables that do not exist yet cannot be locked. The number is ours and has no meaning.
void KeepOthersOut(database::Connection& connection) {
    if (connection.Kind() != database::Connection::Product::PostgreSql) return;
    connection.Execute("SET LOCAL lock_timeout = '600s'");
    connection.Execute("SELECT pg_advisory_xact_lock(7360912)");
}

}  // namespace

std::string ExportDatabases::Add(database::FmoDefinition& definition) {
    bool isFile = database::IsDatabaseFile(definition);
    auto known = isFile ? files_.find(definition.database) : files_.end();
    if (known != files_.end()) return known->second;
    std::string path = definition.database;
    bool isMissing = IsMissing(definition);
    std::string text = isMissing ? database::AccessConnectionString(definition.database)
                                 : database::BuildConnectionString(run_, definition);
    std::string name = NameOf(definition, text);
    byName_.try_emplace(name, Database{definition, text, isMissing, {}});
    // Asked about again where the person was asked: the answer goes to each definition's file.
    if (isFile && definition.database == path) files_.emplace(path, name);
    return name;
}

bool ExportDatabases::Connect(Database& database) {
    Open& open = database.open;
    if (database.isMissing) {
        // The killed run that left the files may have had another command.
        std::string told = platform::RemoveLeftovers(util::FolderOf(database.definition.database));
        if (!told.empty()) run_.Ui().Report(told);
        open.made = database::NewDatabase::IfMissing(database.definition.database);
    }
    open.connection = open.made
                          ? open.made->Connect()
                          : database::OpenFmoConnection(run_, database.definition, database.connectionString);
    return open.connection != nullptr;
}

bool ExportDatabases::OpenAll() {
    for (auto& [name, each] : byName_) {
        Open& open = each.open;
        if (!Connect(each)) return false;
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
    for (auto& [name, each] : byName_) {
        if (!each.open.made) continue;
        each.open.transaction->Commit();
        each.open.transaction.reset();
        each.open.connection.reset();
        each.open.made->Finish();
    }
    for (auto& [name, each] : byName_)
        if (!each.open.made) each.open.transaction->Commit();
    for (auto& [name, each] : byName_)
        if (each.open.made) each.open.made->Commit();
}

}  // namespace vexlator::exporter
