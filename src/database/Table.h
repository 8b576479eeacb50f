// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Connection.h"
#include "database/Statement.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::database {

/// A table as its database spells it. Names are found in any letter case, the exact case first, because users
/// spell them freely and servers differ in their rules.
class Table {
public:
    /// Nothing when there is no such table or view. @throws DatabaseError
    static std::optional<Table> Find(Connection& connection, std::string_view name);

    /// In quotes, for statements.
    const std::string& Name() const { return name_; }

    struct ColumnInfo {
        std::string plain, quoted;  ///< its name; in quotes, for statements
        ColumnType type;
    };
    /// @throws DatabaseError when the table lacks the column
    const ColumnInfo& Required(std::string_view name) const;
    /// A column's name in quotes. @throws DatabaseError when the table lacks it.
    const std::string& Column(std::string_view name) const { return Required(name).quoted; }
    bool HasColumn(std::string_view name) const { return FindColumn(name) != nullptr; }
    const std::vector<ColumnInfo>& Columns() const { return columns_; }
    /// nullptr when there is none.
    const ColumnInfo* FindColumn(std::string_view name) const;

private:
    std::string name_;
    std::vector<ColumnInfo> columns_;
};

}  // namespace vexlator::database
