// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/fmo/ExportDatabases.h"

#include "database/ConnectionString.h"
#include "database/DatabaseError.h"
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

}  // namespace

ExportDatabases::Open* ExportDatabases::For(database::FmoDefinition& definition) {
    MakeDatabase(definition);
    std::string text = database::BuildConnectionString(session_, definition);
    // Several spellings of one file must not become two connections that wait for each other.
    std::string mapped;
    try {
        mapped = database::ForThisSystem(text);
    } catch (const database::DatabaseError&) {
        mapped = text;
    }
    auto known = byConnectionString_.find(mapped);
    if (known != byConnectionString_.end()) return &known->second;
    Open open;
    open.connection = database::OpenFmoConnection(session_, definition, text);
    if (!open.connection) return nullptr;
    open.transaction = std::make_unique<database::Transaction>(*open.connection);
    return &(byConnectionString_[mapped] = std::move(open));
}

void ExportDatabases::Commit() {
    for (auto& [text, open] : byConnectionString_) open.transaction->Commit();
}

}  // namespace vexlator::exporter
