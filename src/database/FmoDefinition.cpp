// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/FmoDefinition.h"

#include "config/Ini.h"
#include "database/ConnectionString.h"
#include "database/DatabaseError.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <cstdint>

namespace vexlator::database {

namespace {

constexpr std::string_view section = "DEF";

bool IsRemote(const FmoDefinition& definition) {
    return definition.database.find("http:") != std::string::npos;
}

std::string RemoteConnectionString(config::Run& run, const FmoDefinition& definition) {
    std::string text = "Driver={Microsoft Access Driver (*.mdb)};Provider=MS Remote;Data Source=" +
                       util::FileNameOf(definition.database) +
                       ";Remote Server=" + util::FolderOf(definition.database);
    run.Ui().ShowMessage(text);
    return text;
}

/// Looks for a missing database file beside the definition.
void LocateDatabase(config::Run& run, FmoDefinition& definition) {
    if (util::FileSize(definition.database) > 0) return;
    std::string shown = platform::NativePath(definition.database);
    std::string beside =
        util::JoinPath(util::FolderOf(definition.definitionPath), util::FileNameOf(definition.database));
    if (util::FileSize(beside) == 0) {
        run.Ui().ShowMessage("Database Not Found\n" + shown);
        return;
    }
    if (!run.Ui().AskYesNo("Database Not Found in specified location\n" + shown +
                           "\nBUT it is in the same folder as FMO\n\nRe-assign MDB Location?"))
        return;
    definition.database = beside;
    run.WriteIni(section, "MDB", beside, definition.definitionPath);
}

}  // namespace

FmoFile ReadFmoFile(std::string_view path) {
    constexpr std::uint64_t largest = std::uint64_t{1} << 20;
    if (util::FileSize(path) > largest)
        throw platform::ReadError(platform::NativePath(path), "", "larger than 1 MB, which no FMO file is");
    return {std::string(path), platform::ReadWholeFile(path)};
}

std::string DatabaseOf(const FmoFile& file) {
    return config::IniValue(file.text, section, "MDB");
}

std::string DatabaseFileOf(const FmoFile& file) {
    FmoDefinition definition;
    definition.driver = config::IniValue(file.text, section, "DRIVER");
    definition.database = DatabaseOf(file);
    if (!definition.driver.empty() || definition.database.empty() || IsRemote(definition)) return "";
    if (!IsDatabaseFile(definition))
        return platform::FindExisting(
            util::JoinPath(definition.database, config::IniValue(file.text, section, "TABLE") + ".DBF"));
    std::string there = platform::FindExisting(definition.database);
    if (!there.empty()) return there;
    return platform::FindExisting(
        util::JoinPath(util::FolderOf(file.path), util::FileNameOf(definition.database)));
}

FmoDefinition ReadFmoDefinition(config::Run& run, const FmoFile& file) {
    config::IniText values(file.text);
    auto read = [&](std::string_view key) { return std::string(values.Value(section, key)); };
    FmoDefinition definition;
    definition.driver = read("DRIVER");
    definition.server = read("SERVER");
    definition.user = read("USER");
    definition.password = read("PASSWORD");
    if (definition.password == "*") definition.password = " ";
    definition.definitionPath = file.path;
    definition.database = read("MDB");
    definition.table = read("TABLE");
    definition.east = read("EAST");
    definition.north = read("NORTH");
    definition.key = read("KEY");
    definition.geometryColumn = read("ENBLOB");
    bool numeric = platform::UpperAscii(read("KEYTYPE")) == "NUMERIC";
    definition.keyType = numeric ? KeyType::Numeric : KeyType::Text;

    if (definition.table.empty() || definition.database.empty())
        run.Ui().ShowMessage("No Database Specification in INI File\n" + platform::NativePath(file.path));
    bool hasPlace = (!definition.east.empty() && !definition.north.empty()) || definition.IsLineTable();
    if (definition.key.empty() || !hasPlace) run.Ui().ShowMessage("Table Not Fully Specified in INI file");
    return definition;
}

bool IsDatabaseFile(const FmoDefinition& definition) {
    return definition.driver.empty() && !IsRemote(definition) &&
           util::InStrNoCase(definition.database, ".mdb") > 0;
}

std::string BuildConnectionString(config::Run& run, FmoDefinition& definition) {
    if (!definition.driver.empty())
        return "DRIVER={" + definition.driver + "};Server=" + definition.server +
               ";database=" + definition.database + ";uid=" + definition.user + ";pwd=" + definition.password;
    if (IsRemote(definition)) return RemoteConnectionString(run, definition);
    if (!IsDatabaseFile(definition)) {
        if (definition.database.find('.') != std::string::npos) return "";
        return "Driver={Microsoft dBASE Driver (*.dbf)};Dbq=" + definition.database;
    }
    LocateDatabase(run, definition);
    return AccessConnectionString(definition.database);
}

std::unique_ptr<Connection> OpenFmoConnection(config::Run& run, FmoDefinition& definition) {
    return OpenFmoConnection(run, definition, BuildConnectionString(run, definition));
}

std::unique_ptr<Connection> OpenFmoConnection(config::Run& run, const FmoDefinition& definition,
                                              const std::string& connectionString) {
    run.DebugMessage(ConnectionString(connectionString).WithoutPasswords());
    try {
        if (connectionString.empty())
            throw DatabaseError("08001", platform::NativePath(definition.database) +
                                             ": neither a database file (.mdb) nor a folder");
        return std::make_unique<Connection>(connectionString);
    } catch (const DatabaseError& error) {
        run.Ui().ShowMessage("Connection DID NOT open.");
        run.Ui().Report(platform::NativePath(definition.definitionPath) + ": " + error.what());
        return nullptr;
    }
}

std::string QuoteKeyValue(std::string_view value, KeyType keyType) {
    if (keyType == KeyType::Numeric) return std::string(value);
    return "'" + util::ReplaceAll(value, "'", "''") + "'";
}

}  // namespace vexlator::database
