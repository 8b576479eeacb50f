// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/Statement.h"

#include "database/ConnectionImpl.h"
#include "database/ParameterBuffer.h"
#include "database/RowBuffer.h"
#include "database/RowsAhead.h"
#include "util/Numbers.h"

#include <optional>
#include <utility>
#include <vector>

namespace vexlator::database {

namespace {

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : 0;
}

std::string BytesOfHex(std::string_view digits) {
    std::string bytes;
    bytes.reserve(digits.size() / 2);
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes += static_cast<char>(HexDigit(digits[i]) * 16 + HexDigit(digits[i + 1]));
    return bytes;
}

}  // namespace

struct Statement::Impl {
    Impl(Connection& connection, std::string text)
        : sql(std::move(text)),
          handle(SQL_HANDLE_STMT, connection.impl_->handle.Get()),
          rowsPerBlock(connection.impl_->rowsPerBlock),
          takesParameters(connection.impl_->takesParameters) {}

    void Check(SQLRETURN result) const { handle.Check(result, sql); }
    void Prepare();
    void OpenRows();
    bool Next();
    bool HasFoundDamage() const { return own && own->HasFoundDamage(); }
    Row Current() const { return ahead ? ahead->Current() : rows->Current(); }

    std::unique_ptr<Connection> own;  ///< if present, rows are read ahead
    std::string sql;
    odbc::Handle handle;
    std::size_t rowsPerBlock;
    bool takesParameters;
    std::vector<ParameterBuffer> parameters;
    std::optional<RowBuffer> rows;
    std::optional<RowsAhead> ahead;
    std::optional<std::uint64_t> expectedRows;
    std::uint64_t rowCount = 0;  ///< number of rows given so far
};

void Statement::Impl::Prepare() {
    Check(SQLPrepare(handle.Get(), odbc::Text(sql), SQL_NTS));
    SQLSMALLINT count = 0;
    if (takesParameters) Check(SQLNumParams(handle.Get(), &count));
    parameters.resize(static_cast<std::size_t>(count));
}

void Statement::Impl::OpenRows() {
    SQLSMALLINT columns = 0;
    Check(SQLNumResultCols(handle.Get(), &columns));
    if (columns == 0) return;
    rowCount = 0;
    if (rows)
        rows->Restart();
    else
        rows.emplace(handle, sql, static_cast<std::size_t>(columns), rowsPerBlock);
    if (own) ahead.emplace(*rows);
}

bool Statement::Impl::Next() {
    if (ahead ? ahead->Next() : rows && rows->Next()) {
        ++rowCount;
        return true;
    }
    if (expectedRows && rowCount != *expectedRows)
        throw DatabaseError("HY000",
                            "the driver gave " + util::GroupedCount(rowCount) + " rows, but the table has " +
                                util::GroupedCount(*expectedRows) + ": repair and compact the database",
                            sql);
    if (HasFoundDamage())
        throw DatabaseError("HY000", "the database is damaged, values may be missing: repair and compact it",
                            sql);
    return false;
}

Statement::Statement(Connection& connection, std::string sql)
    : impl_(std::make_unique<Impl>(connection, std::move(sql))) {
    impl_->Prepare();
}

Statement::Statement(std::unique_ptr<Connection> connection, std::string sql)
    : Statement(*connection, std::move(sql)) {
    impl_->own = std::move(connection);
}

Statement::Statement(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Statement::Statement(Statement&&) noexcept = default;
Statement::~Statement() = default;

Statement Statement::Tables(Connection& connection) {
    auto impl = std::make_unique<Impl>(connection, "");
    impl->Check(
        SQLTables(impl->handle.Get(), nullptr, 0, nullptr, 0, nullptr, 0, odbc::Text("TABLE,VIEW"), SQL_NTS));
    impl->OpenRows();
    return Statement(std::move(impl));
}

void Statement::Execute(std::span<const Value> values) {
    if (values.size() != impl_->parameters.size())
        throw DatabaseError("07002",
                            std::to_string(values.size()) + " values for " +
                                std::to_string(impl_->parameters.size()) + " parameters",
                            impl_->sql);
    impl_->ahead.reset();
    SQLFreeStmt(impl_->handle.Get(), SQL_CLOSE);
    // Without this, SQLite's driver would continue at the last row of a query without parameters.
    if (impl_->rows && values.empty()) impl_->Prepare();
    for (std::size_t i = 0; i < values.size(); ++i)
        impl_->Check(impl_->parameters[i].Set(impl_->handle.Get(), i, values[i]));
    SQLRETURN result = SQLExecute(impl_->handle.Get());
    if (result != SQL_NO_DATA) impl_->Check(result);
    impl_->OpenRows();
}

std::int64_t Statement::RowsAffected() const {
    if (impl_->ahead) return 0;  // the thread uses the handle
    SQLLEN count = 0;
    impl_->Check(SQLRowCount(impl_->handle.Get(), &count));
    return count;
}

std::size_t Statement::ColumnCount() const {
    return impl_->rows ? impl_->rows->ColumnCount() : 0;
}
const std::string& Statement::ColumnName(std::size_t column) const {
    return impl_->rows->Name(column);
}
ColumnType Statement::TypeOf(std::size_t column) const {
    switch (impl_->rows->Type(column)) {
        case SQL_CHAR:
        case SQL_VARCHAR:
        case SQL_LONGVARCHAR:
        case SQL_WCHAR:
        case SQL_WVARCHAR:
        case SQL_WLONGVARCHAR:
            return ColumnType::Text;
        case SQL_NUMERIC:
        case SQL_DECIMAL:
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return ColumnType::Number;
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE:
            return ColumnType::Float;
        case SQL_BINARY:
        case SQL_VARBINARY:
        case SQL_LONGVARBINARY:
            return ColumnType::Bytes;
        default:
            return ColumnType::Other;
    }
}
void Statement::ExpectRows(std::optional<std::uint64_t> count) {
    impl_->expectedRows = count;
}
bool Statement::HasFoundDamage() const {
    return impl_->HasFoundDamage();
}
bool Statement::Next() {
    return impl_->Next();
}
bool Statement::IsNull(std::size_t column) const {
    return impl_->Current()[column].data() == nullptr;
}
std::string_view Statement::Text(std::size_t column) const {
    return impl_->Current()[column];
}
std::string Statement::Bytes(std::size_t column) const {
    std::string_view text = Text(column);
    bool isLiteral = TypeOf(column) != ColumnType::Bytes && text.size() >= 3 && text.size() % 2 == 1 &&
                     text.starts_with("X'") && text.ends_with('\'');
    return isLiteral ? BytesOfHex(text.substr(2, text.size() - 3)) : std::string(text);
}
double Statement::Number(std::size_t column) const {
    return util::NumberOf(Text(column));
}

}  // namespace vexlator::database
