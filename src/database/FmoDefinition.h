// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "database/Connection.h"

#include <memory>
#include <string>
#include <string_view>

/// FMO files. Each ties one feature code, its base name, to one table of one database. They are INI files
/// with the section [DEF].
namespace vexlator::database {

/// The text of an FMO file, read once for all its values.
struct FmoFile {
    std::string path, text;
};
/// @throws platform::ReadError if the file is missing, unreadable, or larger than 1 MB
FmoFile ReadFmoFile(std::string_view path);

/// MDB of a definition, before any check.
std::string DatabaseOf(const FmoFile& file);

/// The native path of the file that holds the definition's table, as far as its text and the disk tell; ""
/// for a server's and where there is none.
std::string DatabaseFileOf(const FmoFile& file);

/// What the key column holds.
enum class KeyType { Numeric = 1, Text = 2 };

struct FmoDefinition {
    std::string driver;    ///< ODBC driver of a server database; empty for a file
    std::string user;      ///< of the connection
    std::string password;  ///< of the connection
    std::string server;    ///< used with `driver`
    std::string definitionPath;
    /// MDB: the path of a database file (with ".mdb"), a folder of dBASE tables (without "."), a remote
    /// address (with "http:"), or with `driver` the name of a database.
    std::string database;
    std::string table;           ///< table or query
    std::string east, north;     ///< columns of a point table's coordinates
    std::string key;             ///< key column
    std::string geometryColumn;  ///< column of packed geometry values; not empty: a line table
    KeyType keyType = KeyType::Text;

    bool IsLineTable() const { return !geometryColumn.empty(); }
};

/// Reads a definition. Messages report missing values; it is returned in any case.
FmoDefinition ReadFmoDefinition(config::Run& run, const FmoFile& file);

/// The connection string for a definition, possibly empty. If the database file is missing but exists beside
/// the FMO file, the user is asked whether to use that one. Yes changes the definition and its file.
std::string BuildConnectionString(config::Run& run, FmoDefinition& definition);

/// Opens the definition's database. On failure shows a message and returns null.
std::unique_ptr<Connection> OpenFmoConnection(config::Run& run, FmoDefinition& definition);
/// The same with a given connection string, for callers that compare the strings.
std::unique_ptr<Connection> OpenFmoConnection(config::Run& run, const FmoDefinition& definition,
                                              const std::string& connectionString);

/// A key value as in a WHERE clause: text keys in single quotes, with inner quotes doubled. This text is for
/// users; statements take key values as parameters.
std::string QuoteKeyValue(std::string_view value, KeyType keyType);

/// Whether MDB names a database file, not a folder, an address or a server's database.
bool IsDatabaseFile(const FmoDefinition& definition);

}  // namespace vexlator::database
