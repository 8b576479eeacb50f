// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Session.h"
#include "database/Connection.h"
#include "database/FmoDefinition.h"

#include <map>
#include <memory>
#include <string>

namespace vexlator::exporter {

/// The databases of one export: one connection and one transaction for each, however many tables it has.
/// Destroyed without Commit(), it leaves all of them as they were.
class ExportDatabases {
public:
    struct Open {
        std::unique_ptr<database::Connection> connection;
        std::unique_ptr<database::Transaction> transaction;
    };

    explicit ExportDatabases(config::Session& session) : session_(session) {}

    /// The definition's database; a database file that is missing is made. nullptr when it cannot be opened,
    /// which is shown. @throws database::DatabaseError, platform::WriteError
    Open* For(database::FmoDefinition& definition);
    /// @throws database::DatabaseError
    void Commit();

private:
    config::Session& session_;
    std::map<std::string, Open> byName_;
};

}  // namespace vexlator::exporter
