// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexlator::database {

/// The keyword=value pairs of an ODBC connection string. Keywords are found in any letter case; a value may
/// stand in braces, in which "}}" means one brace.
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

/// The connection string that opens an Access file, whatever driver will do it (Connection finds that out).
std::string AccessConnectionString(std::string_view path);

/// The connection string that opens, or makes, an SQLite file.
/// @param nativePath must not hold ";", which the driver cannot take.
/// @throws DatabaseError
std::string SqliteConnectionString(const std::string& nativePath);

/// The string for the drivers of this system: a connection string of one that only Windows has is mapped, any
/// other comes back as it is. For the Access driver the file decides: an SQLite database, or a real Access
/// file (which can only be read).
/// A folder of dBASE tables gives an SQLite database in memory, which Connection fills as tables are asked
/// for.
/// @throws DatabaseError no such file or folder, a file that is no database.
std::string ForThisSystem(const std::string& connectionString);

/// The native path of the folder of dBASE tables that a connection string names; "" when it names none.
std::string DbaseFolderOf(const std::string& connectionString);

}  // namespace vexlator::database
