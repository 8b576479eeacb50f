// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/NewDatabase.h"

#include "database/ConnectionString.h"
#include "database/DatabaseError.h"
#include "database/Statement.h"

namespace vexlator::database {

namespace {

/// The same time as an export waits for another one in an existing database.
constexpr std::chrono::seconds longestWait{60};

}  // namespace

std::unique_ptr<NewDatabase> NewDatabase::IfMissing(const std::string& path) {
    if (platform::SizeOfFile(path) > 0) return nullptr;
    auto lock = std::make_unique<platform::FileLock>(path, longestWait);
    if (platform::SizeOfFile(path) > 0) return nullptr;
    return std::unique_ptr<NewDatabase>(new NewDatabase(std::move(lock), path));
}

std::unique_ptr<Connection> NewDatabase::Connect() const {
    try {
        auto connection = std::make_unique<Connection>(SqliteConnectionString(file_.TemporaryName()));
        // Nobody else sees the file, and after a failure nobody needs it. So it has no journal, which would
        // stay behind, no locks, and one sync at the end. The driver runs a statement with a result when the
        // result is fetched.
        for (const char* setting : {"locking_mode=EXCLUSIVE", "journal_mode=OFF", "synchronous=OFF"}) {
            Statement statement(*connection, std::string("PRAGMA ") + setting);
            statement.Execute();
            statement.Next();
        }
        return connection;
    } catch (const DatabaseError& error) {
        throw platform::WriteError(file_.Name(), error.what());
    }
}

}  // namespace vexlator::database
