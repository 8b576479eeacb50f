// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/SqliteSetup.h"

#include <sqlite3.h>

namespace vexlator::database {

void SetUpSqlite() {
    // A connection is used by one thread at a time, and nobody asks for SQLite's memory use. Without the
    // locks for both, rows are read a third faster.
    [[maybe_unused]] static const bool done = sqlite3_config(SQLITE_CONFIG_MULTITHREAD) == SQLITE_OK &&
                                              sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0) == SQLITE_OK;
}

}  // namespace vexlator::database
