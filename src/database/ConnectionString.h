// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexlator::database {

/// The keyword=value pairs of an ODBC connection string. Keywords are found in any letter case; a value may
/// be in braces, where "}}" means one brace.
class ConnectionString {
public:
    explicit ConnectionString(std::string_view text);

    /// The first value of the keyword; "" when it is missing.
    std::string_view Get(std::string_view keyword) const;

    /// The pairs as a connection string for people to see: passwords are replaced by "***".
    std::string WithoutPasswords() const;

private:
    std::vector<std::pair<std::string, std::string>> pairs_;
};

/// The connection string that opens an Access file, with any driver (Connection chooses it).
std::string AccessConnectionString(std::string_view path);

/// The connection string that opens, or makes, an SQLite file.
/// @param nativePath must not hold ";", which the driver does not accept.
/// @throws DatabaseError
std::string SqliteConnectionString(const std::string& nativePath);

/// The connection string for the drivers of this system. A string for a driver that exists only on Windows is
/// mapped; any other comes back unchanged. For the Access driver the file decides: an SQLite database, or a
/// real Access file (which can only be read). A folder of dBASE tables becomes an SQLite database in memory,
/// which Connection fills on request.
/// @throws DatabaseError no such file or folder, or a file that is no database.
std::string ForThisSystem(const std::string& connectionString);

/// The native path of the folder of dBASE tables that a connection string names; "" if it names none.
std::string DbaseFolderOf(const std::string& connectionString);

}  // namespace vexlator::database
