// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/Odbc.h"

#include "database/DatabaseError.h"
#include "database/SqliteSetup.h"

#include <array>
#include <cstring>

namespace vexlator::database::odbc {

namespace {

const char* Chars(const SQLCHAR* text) {
    return reinterpret_cast<const char*>(text);
}

/// The value of one keyword in a list of "keyword=value" texts. A NUL ends each text, and another NUL ends
/// the list.
std::string AttributeOf(const char* list, std::string_view keyword) {
    for (; *list; list += std::strlen(list) + 1) {
        std::string_view item = list;
        if (item.starts_with(keyword) && item.substr(keyword.size()).starts_with('='))
            return std::string(item.substr(keyword.size() + 1));
    }
    return "";
}

}  // namespace

Handle::Handle(SQLSMALLINT type, SQLHANDLE parent) : type_(type) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &handle_)))
        throw DatabaseError("HY001", "ODBC gives no handle");
}

Handle::~Handle() {
    SQLFreeHandle(type_, handle_);
}

void Handle::Check(SQLRETURN result, std::string_view query) const {
    if (SQL_SUCCEEDED(result)) return;
    std::string state, text;
    std::array<SQLCHAR, 6> recordState{};
    std::array<SQLCHAR, 4096> recordText{};
    SQLINTEGER code = 0;
    SQLSMALLINT length = 0;
    for (SQLSMALLINT record = 1;
         SQL_SUCCEEDED(SQLGetDiagRec(type_, handle_, record, recordState.data(), &code, recordText.data(),
                                     static_cast<SQLSMALLINT>(recordText.size()), &length));
         ++record) {
        if (state.empty()) state = Chars(recordState.data());
        text += (text.empty() ? "" : "; ") + std::string(Chars(recordText.data()));
    }
    throw DatabaseError(state.empty() ? "HY000" : state, text.empty() ? "the driver gives no reason" : text,
                        std::string(query));
}

Environment::Environment() : Handle(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
    SetUpSqlite();
    Check(SQLSetEnvAttr(Get(), SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0));
}

std::vector<InstalledDriver> InstalledDrivers() {
    Environment environment;
    std::vector<InstalledDriver> drivers;
    std::array<SQLCHAR, 256> name{};
    std::array<SQLCHAR, 2048> attributes{};
    SQLSMALLINT nameLength = 0, attributesLength = 0;
    for (SQLUSMALLINT direction = SQL_FETCH_FIRST;
         SQL_SUCCEEDED(SQLDrivers(environment.Get(), direction, name.data(), name.size(), &nameLength,
                                  attributes.data(), attributes.size() - 1, &attributesLength));
         direction = SQL_FETCH_NEXT) {
        drivers.push_back({Chars(name.data()), AttributeOf(Chars(attributes.data()), "Driver")});
        attributes.fill(0);
    }
    return drivers;
}

}  // namespace vexlator::database::odbc
