// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sql.h>
#include <sqlext.h>
#include <string>
#include <string_view>
#include <vector>

/// ODBC helpers for the files of this folder. No other folder includes it.
///
/// Text goes through the narrow functions as UTF-8. The drivers for SQLite and PostgreSQL use UTF-8 there.
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
    /// Does nothing if `result` is a success. @throws DatabaseError with all texts of the driver.
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
/// The drivers in the system's ODBC configuration.
std::vector<InstalledDriver> InstalledDrivers();

/// ODBC declares input text as non-const.
inline SQLCHAR* Text(const std::string& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

/// An attribute with a numeric value is passed as a pointer.
inline SQLPOINTER Number(std::size_t value) {
    return reinterpret_cast<SQLPOINTER>(value);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace vexlator::database::odbc
