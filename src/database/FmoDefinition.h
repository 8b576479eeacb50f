// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "database/Connection.h"

#include <memory>
#include <string>
#include <string_view>

/// FMO files: each ties one feature code, its base name, to one table of one database. They are INI files
/// with the section [DEF].
namespace vexlator::database {

/// The text of an FMO file, read once for all that is asked of it.
struct FmoFile {
    std::string path, text;
};
/// @throws platform::ReadError a file that is missing, cannot be read, or is larger than 1 MB
FmoFile ReadFmoFile(std::string_view path);

/// MDB of a definition, before anything is checked.
std::string DatabaseOf(const FmoFile& file);

/// What the key column holds.
enum class KeyType { Numeric = 1, Text = 2 };

struct FmoDefinition {
    std::string driver;    ///< ODBC driver of a server database; empty for a file
    std::string user;      ///< of the connection
    std::string password;  ///< of the connection
    std::string server;    ///< used with `driver`
    std::string definitionPath;
    /// MDB: the path of a database file (holds ".mdb"), a folder of dBASE tables (no "."), a remote address
    /// (holds "http:"), or with `driver` the name of a database.
    std::string database;
    std::string table;           ///< table or query
    std::string east, north;     ///< columns of a point table's coordinates
    std::string key;             ///< key column
    std::string geometryColumn;  ///< column of packed geometry values; not empty: a line table
    KeyType keyType = KeyType::Text;

    bool IsLineTable() const { return !geometryColumn.empty(); }
};

/// What a definition lacks is shown as messages; it is returned in any case.
FmoDefinition ReadFmoDefinition(config::Run& run, const FmoFile& file);

/// The connection string for a definition, possibly empty. When the database file is missing but lies beside
/// the FMO file, the person is asked whether to use that; Yes changes the definition and its file.
std::string BuildConnectionString(config::Run& run, FmoDefinition& definition);

/// Opens the definition's database; null when that fails, which is shown as a message.
std::unique_ptr<Connection> OpenFmoConnection(config::Run& run, FmoDefinition& definition);
/// The same with the definition's connection string, for callers that compare them.
std::unique_ptr<Connection> OpenFmoConnection(config::Run& run, const FmoDefinition& definition,
                                              const std::string& connectionString);

/// A key value as it stands in a WHERE clause: text keys in single quotes, those inside doubled. Statements
/// take key values as parameters instead; this is for people to see.
std::string QuoteKeyValue(std::string_view value, KeyType keyType);

/// Whether MDB names a database file, and not a folder, an address or a server's database.
bool IsDatabaseFile(const FmoDefinition& definition);

}  // namespace vexlator::database
