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

/// The databases of one export. Each has one connection and one transaction for any number of tables.
/// Destruction without Commit() leaves all of them unchanged.
class ExportDatabases {
public:
    struct Open {
        std::unique_ptr<database::NewDatabase> made;  ///< null if the database existed
        std::unique_ptr<database::Connection> connection;
        std::unique_ptr<database::Transaction> transaction;
    };

    explicit ExportDatabases(config::Run& run) : run_(run) {}

    /// Adds the definition's database and returns its key here.
    std::string Add(database::FmoDefinition& definition);
    /// Opens all databases, creates missing database files, and locks out other exports to the end. The order
    /// is always the same, so that two exports cannot wait for each other. If one cannot be opened, shows a
    /// message and returns false.
    /// @throws platform::WriteError if one cannot be written
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
    std::map<std::string, std::string> files_;  ///< names, by what definitions call the file
};

}  // namespace vexlator::exporter
