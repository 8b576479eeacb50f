// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "database/Connection.h"
#include "database/FmoDefinition.h"
#include "database/NewDatabase.h"

#include <map>
#include <memory>
#include <string>

namespace vexlator::exporter {

/// The databases of one export: one connection and one transaction for each, however many tables it has.
/// Destroyed without Commit(), it leaves all of them as they were.
class ExportDatabases {
public:
    struct Open {
        std::unique_ptr<database::NewDatabase> made;  ///< null when the database was there
        std::unique_ptr<database::Connection> connection;
        std::unique_ptr<database::Transaction> transaction;
    };

    explicit ExportDatabases(config::Run& run) : run_(run) {}

    /// Adds the definition's database and returns its name here.
    std::string Add(database::FmoDefinition& definition);
    /// Opens all, makes database files that are missing, and keeps other exports out of them to the end.
    /// Their order is always the same: else two exports could wait for each other. False when one cannot be
    /// opened, which is shown.
    /// @throws platform::WriteError when one cannot be written to
    bool OpenAll();
    Open& Named(const std::string& name) { return byName_.at(name).open; }
    /// @throws database::DatabaseError, platform::WriteError
    void Commit();

private:
    struct Database {
        database::FmoDefinition definition;
        std::string connectionString;
        bool isMissing;
        Open open;
    };

    bool Connect(Database& database);

    config::Run& run_;
    std::map<std::string, Database> byName_;
};

}  // namespace vexlator::exporter
