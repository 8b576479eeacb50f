// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/SharedSettings.h"
#include "database/Connection.h"
#include "database/FmoDefinition.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vexlator::importer {

/// The columns to select beside geometry and key: names, or every column.
struct SelectList {
    std::vector<std::string> names;
    bool everything = false;
};

/// A query in two forms: with the names of its definition, for users, and with the database's spelling and
/// quotes.
class FmoQuery {
public:
    /// East, north, key and the listed columns of the rows inside the extent, if one is set.
    static FmoQuery Points(const database::FmoDefinition& definition, const SelectList& list,
                           const config::ImportExtentBox& extent);
    /// Geometry value, key and every column of all rows. Among the latter, the geometry column is empty if
    /// the database can omit it.
    static FmoQuery Lines(const database::FmoDefinition& definition);

    const std::string& Shown() const { return shown_; }
    struct Statement {
        std::string sql;
        std::vector<std::string> columns;  ///< names of the returned columns
        /// Number of rows by the table's own count, for drivers that have to be checked.
        std::optional<std::uint64_t> rowCount;
        /// Selects rows if the statement returns all of them.
        config::ImportExtentBox extent;
    };
    /// @throws database::DatabaseError if table or columns are missing
    Statement For(database::Connection& connection) const;

private:
    std::string table_, shown_, east_, north_, geometryColumn_;
    std::vector<std::string> first_;  ///< the columns before the list
    SelectList list_;
    config::ImportExtentBox extent_;
};

}  // namespace vexlator::importer
