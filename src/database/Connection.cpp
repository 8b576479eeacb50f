// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/Connection.h"

#include "database/ConnectionImpl.h"
#include "database/ConnectionString.h"
#include "database/DbaseFolder.h"
#include "platform/AsciiCase.h"
#include "util/Text.h"

#include <array>

namespace vexlator::database {

namespace {

constexpr std::size_t loginTimeout = 15;  ///< seconds
constexpr std::size_t largestBlock = 64;  ///< rows

Connection::Product ProductNamed(std::string_view name) {
    if (name == "SQLite") return Connection::Product::Sqlite;
    if (name == "PostgreSQL") return Connection::Product::PostgreSql;
    return Connection::Product::Other;
}

}  // namespace

Connection::Impl::Impl(const std::string& connectionString) {
    std::string text = ForThisSystem(connectionString);
    // Only the driver for Access files gets its file by this keyword.
    if (!ConnectionString(text).Get("Dbq").empty()) driverErrors.emplace();
    SQLSetConnectAttr(handle.Get(), SQL_ATTR_LOGIN_TIMEOUT, odbc::Number(loginTimeout), 0);
    handle.Check(SQLDriverConnect(handle.Get(), nullptr, odbc::Text(text), SQL_NTS, nullptr, 0, nullptr,
                                  SQL_DRIVER_NOPROMPT));
    product = ProductNamed(Info(SQL_DBMS_NAME));
    quote = std::string(util::Trim(Info(SQL_IDENTIFIER_QUOTE_CHAR)));
    // Only a driver that rereads long values within a block may fetch more than one row at a time.
    SQLUINTEGER extensions = 0;
    SQLGetInfo(handle.Get(), SQL_GETDATA_EXTENSIONS, &extensions, sizeof extensions, nullptr);
    if (extensions & SQL_GD_BLOCK) rowsPerBlock = largestBlock;
    SQLUSMALLINT supported = SQL_TRUE;
    SQLGetFunctions(handle.Get(), SQL_API_SQLNUMPARAMS, &supported);
    takesParameters = supported == SQL_TRUE;
    dbaseFolder = DbaseFolderOf(connectionString);
}

std::string Connection::Impl::Info(SQLUSMALLINT what) const {
    std::array<char, 128> text{};
    SQLGetInfo(handle.Get(), what, text.data(), static_cast<SQLSMALLINT>(text.size()), nullptr);
    return text.data();
}

Connection::Connection(const std::string& connectionString)
    : impl_(std::make_unique<Impl>(connectionString)) {
    // SQLite opens any file. It reports a wrong file only at the first read.
    if (Kind() == Product::Sqlite) Execute("SELECT count(*) FROM sqlite_master");
}

Connection::~Connection() = default;

void Connection::Provide(std::string_view table) {
    if (impl_->dbaseFolder.empty() || !impl_->dbaseTables.insert(platform::LowerAscii(table)).second) return;
    Execute("PRAGMA query_only=0");
    LoadDbaseTable(*this, impl_->dbaseFolder, table);
    // Changes would only affect the copy.
    Execute("PRAGMA query_only=1");
}

Connection::Product Connection::Kind() const {
    return impl_->product;
}

bool Connection::HasFoundDamage() const {
    return impl_->driverErrors && impl_->driverErrors->Any();
}

bool Connection::OnlyReads() const {
    return !impl_->takesParameters || !impl_->dbaseFolder.empty();
}

void Connection::Execute(const std::string& sql) {
    odbc::Handle statement(SQL_HANDLE_STMT, impl_->handle.Get());
    SQLRETURN result = SQLExecDirect(statement.Get(), odbc::Text(sql), SQL_NTS);
    if (result != SQL_NO_DATA) statement.Check(result, sql);
}

std::string Connection::Quoted(std::string_view identifier) const {
    const std::string& quote = impl_->quote;
    if (quote.empty()) return std::string(identifier);
    return quote + util::ReplaceAll(identifier, quote, quote + quote) + quote;
}

// SQLite's transactions begin by statement, because this way they take the write lock at once. A transaction
// that takes the lock later fails, instead of waiting, if another program has written since.
Transaction::Transaction(Connection& connection) : connection_(connection) {
    if (connection.OnlyReads()) throw DatabaseError("25006", "the driver for such a database only reads");
    if (connection.Kind() == Connection::Product::Sqlite) {
        connection.Execute("BEGIN IMMEDIATE");
        return;
    }
    const odbc::Handle& handle = connection.impl_->handle;
    handle.Check(SQLSetConnectAttr(handle.Get(), SQL_ATTR_AUTOCOMMIT, odbc::Number(SQL_AUTOCOMMIT_OFF),
                                   SQL_IS_UINTEGER));
}

Transaction::~Transaction() {
    if (!open_) return;
    try {
        End(false);
    } catch (const DatabaseError&) {
        // The connection is broken. The database undoes uncommitted changes.
    }
}

void Transaction::LockTable(const std::string& quotedTable) {
    if (connection_.Kind() != Connection::Product::PostgreSql) return;
    connection_.Execute("SET LOCAL lock_timeout = '60s'");
    connection_.Execute("LOCK TABLE " + quotedTable + " IN SHARE ROW EXCLUSIVE MODE");
}

void Transaction::Commit() {
    End(true);
}

void Transaction::End(bool keep) {
    if (connection_.Kind() == Connection::Product::Sqlite) {
        connection_.Execute(keep ? "COMMIT" : "ROLLBACK");
    } else {
        const odbc::Handle& handle = connection_.impl_->handle;
        handle.Check(SQLEndTran(SQL_HANDLE_DBC, handle.Get(), keep ? SQL_COMMIT : SQL_ROLLBACK));
        handle.Check(SQLSetConnectAttr(handle.Get(), SQL_ATTR_AUTOCOMMIT, odbc::Number(SQL_AUTOCOMMIT_ON),
                                       SQL_IS_UINTEGER));
    }
    open_ = false;
}

}  // namespace vexlator::database
