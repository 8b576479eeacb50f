// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/ConnectionString.h"

#include "database/DatabaseError.h"
#include "database/Odbc.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::database {

namespace {

constexpr std::string_view accessDriver = "Microsoft Access Driver (*.mdb)";
constexpr std::string_view dbaseDriver = "Microsoft dBASE Driver (*.dbf)";

std::string_view TakeUpTo(std::string_view& text, char end) {
    std::size_t position = std::min(text.find(end), text.size());
    std::string_view part = text.substr(0, position);
    text.remove_prefix(std::min(position + 1, text.size()));
    return part;
}

/// Takes a value in braces, without them; `text` starts after the opening brace.
std::string TakeBraced(std::string_view& text) {
    std::string value(TakeUpTo(text, '}'));
    while (text.starts_with('}')) {
        text.remove_prefix(1);
        value += '}';
        value += TakeUpTo(text, '}');
    }
    TakeUpTo(text, ';');
    return value;
}

std::string Braced(std::string_view value) {
    if (value.find_first_of("{};=") == std::string_view::npos) return std::string(value);
    return "{" + util::ReplaceAll(value, "}", "}}") + "}";
}

bool IsPassword(std::string_view keyword) {
    return platform::SameNoCase(keyword, "pwd") || platform::SameNoCase(keyword, "password");
}

DatabaseError CannotConnect(const std::string& text) {
    return DatabaseError("08001", text);
}

/// How the driver manager finds a driver: by its registered name, else by its file, which the driver manager
/// looks for in its own folder.
std::string DriverFor(std::string_view library) {
    for (const odbc::InstalledDriver& driver : odbc::InstalledDrivers())
        if (driver.library.find(library) != std::string::npos) return Braced(driver.name);
    return std::string(library) + ".so";
}

/// @param file a real Access file. The driver loops forever in a truncated file.
std::string ForJetFile(const std::string& native, std::string_view file) {
    constexpr std::size_t smallestPage = 2048;
    if (file.size() % smallestPage != 0)
        throw CannotConnect(native + ": byte " + std::to_string(file.size()) +
                            ": the Access database is cut off");
    return "Driver=" + DriverFor("libmdbodbc") + ";DBQ=" + Braced(native);
}

std::string ForAccessFile(std::string_view path) {
    std::string native = platform::FindExisting(path);
    if (native.empty()) throw CannotConnect(platform::NativePath(path) + ": no such file");
    try {
        platform::MappedFile file(native);
        if (file.Text().starts_with(std::string_view("SQLite format 3\0", 16)))
            return SqliteConnectionString(native);
        std::string_view mark = file.Text().substr(std::min<std::size_t>(4, file.Text().size()));
        if (mark.starts_with("Standard Jet DB") || mark.starts_with("Standard ACE DB"))
            return ForJetFile(native, file.Text());
    } catch (const platform::ReadError& error) {
        throw CannotConnect(error.what());
    }
    throw CannotConnect(native + ": neither an SQLite nor an Access database");
}

std::string ForDbaseFolder(std::string_view path) {
    if (!platform::FolderExists(path)) throw CannotConnect(platform::NativePath(path) + ": no such folder");
    return SqliteConnectionString(":memory:");
}

}  // namespace

ConnectionString::ConnectionString(std::string_view text) {
    while (!text.empty()) {
        std::size_t end = text.find_first_of("=;");
        if (end == std::string_view::npos || text[end] == ';') {
            TakeUpTo(text, ';');
            continue;
        }
        std::string keyword(util::Trim(TakeUpTo(text, '=')));
        bool braced = text.starts_with('{');
        if (braced) text.remove_prefix(1);
        pairs_.emplace_back(keyword, braced ? TakeBraced(text) : std::string(TakeUpTo(text, ';')));
    }
}

std::string_view ConnectionString::Get(std::string_view keyword) const {
    for (const auto& [name, value] : pairs_)
        if (platform::SameNoCase(name, keyword)) return value;
    return "";
}

std::string ConnectionString::WithoutPasswords() const {
    std::string text;
    for (const auto& [name, value] : pairs_) {
        if (!text.empty()) text += ';';
        text += name + "=" + (IsPassword(name) && !value.empty() ? "***" : Braced(value));
    }
    return text;
}

std::string AccessConnectionString(std::string_view path) {
    return "Driver={" + std::string(accessDriver) + "};Dbq=" + Braced(path);
}

std::string SqliteConnectionString(const std::string& nativePath) {
    if (nativePath.find(';') != std::string::npos)
        throw CannotConnect(nativePath + ": the path of a database must not hold a semicolon");
    // StepAPI: rows come one by one instead of all into memory. Timeout: the time, in milliseconds, to wait
    // for other writers.
    return "Driver=" + DriverFor("libsqlite3odbc") + ";StepAPI=1;Timeout=60000;Database=" + nativePath;
}

std::string ForThisSystem(const std::string& connectionString) {
    ConnectionString parts(connectionString);
    if (platform::SameNoCase(parts.Get("Driver"), dbaseDriver)) return ForDbaseFolder(parts.Get("Dbq"));
    if (!platform::SameNoCase(parts.Get("Driver"), accessDriver)) return connectionString;
    if (parts.Get("Dbq").empty()) throw CannotConnect("only database files on this system can be opened");
    return ForAccessFile(parts.Get("Dbq"));
}

std::string DbaseFolderOf(const std::string& connectionString) {
    ConnectionString parts(connectionString);
    if (!platform::SameNoCase(parts.Get("Driver"), dbaseDriver)) return "";
    return platform::FindExisting(parts.Get("Dbq"));
}

}  // namespace vexlator::database
