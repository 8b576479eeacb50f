// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/updates/Sqlite.h"

#include "platform/Errors.h"

namespace vexlator::background {

namespace {

constexpr int patienceMs = 20'000;  ///< with another program that writes the same file

}  // namespace

Sqlite::Sqlite(const std::string& native) : name_(native.empty() ? "a temporary database" : native) {
    int result =
        sqlite3_open_v2(native.c_str(), &database_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (result != SQLITE_OK) {
        std::string reason = database_ ? sqlite3_errmsg(database_) : "there is not enough memory";
        sqlite3_close(database_);
        throw platform::WriteError(name_, reason);
    }
    sqlite3_busy_timeout(database_, patienceMs);
}

Sqlite::~Sqlite() {
    sqlite3_close(database_);
}

void Sqlite::Execute(const char* statements) {
    Require(sqlite3_exec(database_, statements, nullptr, nullptr, nullptr));
}

void Sqlite::Fail(const std::string& reason) const {
    throw platform::WriteError(name_, reason);
}

void Sqlite::Require(int result, int expected) const {
    if (result == expected) return;
    Fail(result == SQLITE_BUSY ? "another program is writing it" : sqlite3_errmsg(database_));
}

SqliteStatement::SqliteStatement(Sqlite& database, const char* text) : database_(database) {
    database.Require(sqlite3_prepare_v2(database.database_, text, -1, &statement_, nullptr));
}

SqliteStatement& SqliteStatement::Bind(int parameter, std::string_view text) {
    database_.Require(
        sqlite3_bind_text64(statement_, parameter, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
    return *this;
}

SqliteStatement& SqliteStatement::Bind(int parameter, std::int64_t number) {
    database_.Require(sqlite3_bind_int64(statement_, parameter, number));
    return *this;
}

SqliteStatement& SqliteStatement::Bind(int parameter, std::span<const std::byte> bytes) {
    database_.Require(sqlite3_bind_blob64(statement_, parameter, bytes.data(), bytes.size(), SQLITE_STATIC));
    return *this;
}

SqliteStatement& SqliteStatement::BindNull(int parameter) {
    database_.Require(sqlite3_bind_null(statement_, parameter));
    return *this;
}

void SqliteStatement::Run() {
    while (Step()) {
    }
}

bool SqliteStatement::Step() {
    int result = sqlite3_step(statement_);
    if (result == SQLITE_ROW) return true;
    std::string reason = result == SQLITE_DONE ? "" : sqlite3_errmsg(database_.database_);
    sqlite3_reset(statement_);
    if (!reason.empty()) database_.Fail(reason);
    return false;
}

std::string_view SqliteStatement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return {text ? text : "", static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

std::span<const std::byte> SqliteStatement::Bytes(int column) const {
    const auto* bytes = static_cast<const std::byte*>(sqlite3_column_blob(statement_, column));
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

}  // namespace vexlator::background
