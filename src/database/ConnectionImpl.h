// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Connection.h"
#include "database/Odbc.h"
#include "platform/HeldErrors.h"

#include <optional>
#include <set>

namespace vexlator::database {

struct Connection::Impl {
    explicit Impl(const std::string& connectionString);
    ~Impl() { SQLDisconnect(handle.Get()); }
    /// A text of the driver about itself or its database.
    std::string Info(SQLUSMALLINT what) const;

    std::optional<platform::HeldErrors> driverErrors;  ///< of a driver that prints what it finds
    odbc::Environment environment;
    odbc::Handle handle{SQL_HANDLE_DBC, environment.Get()};
    Product product = Product::Other;
    std::size_t rowsPerBlock = 1;
    bool takesParameters = true;  ///< false for the driver for Access files, which only reads
    std::string dbaseFolder;      ///< its tables are copied in on request
    std::set<std::string, std::less<>> dbaseTables;  ///< the tables copied so far
    std::string quote;  ///< around identifiers; empty if the database has no quotes
};

}  // namespace vexlator::database
