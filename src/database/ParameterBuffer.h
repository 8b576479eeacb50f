// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Odbc.h"
#include "database/Statement.h"

#include <vector>

namespace vexlator::database {

/// Where the driver finds one parameter's value. The driver is told of it again only when the kind of value
/// changes or outgrows it (for bytes always), so that running a statement a million times costs copies, not
/// calls.
class ParameterBuffer {
public:
    /// Takes a value for parameter `index`, from 0.
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
