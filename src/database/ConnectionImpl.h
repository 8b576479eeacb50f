// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Connection.h"
#include "database/Odbc.h"

#include <set>

namespace vexlator::database {

struct Connection::Impl {
    explicit Impl(const std::string& connectionString);
    ~Impl() { SQLDisconnect(handle.Get()); }
    /// A text that the driver tells of itself or of its database.
    std::string Info(SQLUSMALLINT what) const;

    odbc::Environment environment;
    odbc::Handle handle{SQL_HANDLE_DBC, environment.Get()};
    Product product = Product::Other;
    std::size_t rowsPerBlock = 1;
    bool takesParameters = true;                     ///< not so the driver for Access files, which only reads
    std::string dbaseFolder;                         ///< whose tables are copied in as they are asked for
    std::set<std::string, std::less<>> dbaseTables;  ///< those that have been
    std::string quote;  ///< around identifiers; empty when the database knows no quotes
};

}  // namespace vexlator::database
