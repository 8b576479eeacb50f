// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sql.h>
#include <sqlext.h>
#include <string>
#include <string_view>
#include <vector>

/// What the files of this folder share of ODBC. No other folder includes it.
///
/// Text goes through the narrow functions as UTF-8: the drivers for SQLite and PostgreSQL take and give it
/// unchanged.
namespace vexlator::database::odbc {

/// An ODBC handle and its release.
class Handle {
public:
    /// @throws DatabaseError
    Handle(SQLSMALLINT type, SQLHANDLE parent);
    ~Handle();
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    SQLHANDLE Get() const { return handle_; }
    /// Does nothing when `result` is a success. @throws DatabaseError with all that the driver says.
    void Check(SQLRETURN result, std::string_view query = "") const;

private:
    SQLSMALLINT type_;
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

/// An environment handle for ODBC 3.
class Environment : public Handle {
public:
    Environment();
};

struct InstalledDriver {
    std::string name;     ///< as in a connection string
    std::string library;  ///< its file, with or without folder
};
/// The drivers that the system's configuration of ODBC names.
std::vector<InstalledDriver> InstalledDrivers();

/// ODBC takes all text as non-const.
inline SQLCHAR* Text(const std::string& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

/// An attribute whose value is a number travels as a pointer.
inline SQLPOINTER Number(std::size_t value) {
    return reinterpret_cast<SQLPOINTER>(value);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace vexlator::database::odbc
