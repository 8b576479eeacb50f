// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/fmo/ExportDatabases.h"

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

}  // namespace

ExportDatabases::Open* ExportDatabases::For(database::FmoDefinition& definition) {
    MakeDatabase(definition);
    std::string text = database::BuildConnectionString(session_, definition);
    std::string name = NameOf(definition, text);
    auto known = byName_.find(name);
    if (known != byName_.end()) return &known->second;
    Open open;
    open.connection = database::OpenFmoConnection(session_, definition, text);
    if (!open.connection) return nullptr;
    open.transaction = std::make_unique<database::Transaction>(*open.connection);
    return &(byName_[name] = std::move(open));
}

void ExportDatabases::Commit() {
    for (auto& [text, open] : byName_) open.transaction->Commit();
}

}  // namespace vexlator::exporter
