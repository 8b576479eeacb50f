// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Odbc.h"
#include "database/Statement.h"

#include <vector>

namespace vexlator::database {

/// The memory where the driver finds one parameter's value. The value is bound again only if its kind changes
/// or it outgrows the memory (bytes: always). So a million runs of a statement cost copies, not calls.
class ParameterBuffer {
public:
    /// Sets the value for parameter `index`, from 0.
    SQLRETURN Set(SQLHANDLE statement, std::size_t index, const Value& value);

private:
    struct Type {
        SQLSMALLINT inMemory = SQL_C_CHAR, inDatabase = SQL_VARCHAR;
        bool operator==(const Type&) const = default;
    };
    SQLRETURN Put(SQLHANDLE statement, std::size_t index, Type type, std::string_view bytes);

    Type type_;
    std::vector<char> bytes_;
    SQLLEN length_ = SQL_NULL_DATA;
};

}  // namespace vexlator::database
