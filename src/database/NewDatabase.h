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

/// A database file that appears with all its contents, or not at all: an SQLite database in a temporary file
/// beside the target. Destruction without Commit() leaves nothing behind. No other program makes the same
/// file at the same time.
class NewDatabase {
public:
    /// Null if the file exists, even if another program has just made it. Waits up to a minute for such a
    /// program. The folder must exist.
    /// @throws platform::WriteError
    static std::unique_ptr<NewDatabase> IfMissing(const std::string& path);

    /// A connection for one transaction. Changes cannot be rolled back, only dropped with this object.
    /// @throws platform::WriteError
    std::unique_ptr<Connection> Connect() const;
    /// Writes the committed data to the disk; a later Commit() only renames. The connection must be closed.
    /// @throws platform::WriteError, like Commit()
    void Finish() { file_.Finish(); }
    void Commit() { file_.Commit(); }

private:
    NewDatabase(std::unique_ptr<platform::FileLock> lock, std::string_view path)
        : lock_(std::move(lock)), file_(path) {}

    std::unique_ptr<platform::FileLock> lock_;
    platform::OutputFile file_;
};

}  // namespace vexlator::database
