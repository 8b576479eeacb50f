// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Connection.h"
#include "platform/Files.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace vexlator::database {

/// A database file that appears with all that is written to it, or not at all: an SQLite database in a
/// temporary file beside its place. Destroyed without Commit(), it leaves nothing behind. No other program
/// makes the same one meanwhile.
class NewDatabase {
public:
    /// Null when the file is there, perhaps only since another program has made it; waits for such a program
    /// up to a minute. The folder must be there.
    /// @throws platform::WriteError
    static std::unique_ptr<NewDatabase> IfMissing(const std::string& path);

    /// A connection for one transaction: what is written cannot be undone by rolling it back, only by
    /// dropping this object. @throws platform::WriteError
    std::unique_ptr<Connection> Connect() const;
    /// Writes what has been committed to the disk; a Commit() that follows only renames. The connection must
    /// be closed. @throws platform::WriteError, as does Commit()
    void Finish() { file_.Finish(); }
    void Commit() { file_.Commit(); }

private:
    NewDatabase(std::unique_ptr<platform::FileLock> lock, std::string_view path)
        : lock_(std::move(lock)), file_(path) {}

    std::unique_ptr<platform::FileLock> lock_;
    platform::OutputFile file_;
};

}  // namespace vexlator::database
