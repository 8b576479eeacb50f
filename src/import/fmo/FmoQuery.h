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

/// What is selected from a table beside geometry and key: names, or every column.
struct SelectList {
    std::vector<std::string> names;
    bool everything = false;
};

/// A query in the words of its definition, as people are shown it, and in those of its database: names
/// quoted and spelled as the database has them.
class FmoQuery {
public:
    /// East, north, key and the listed columns of the rows inside the extent, when one is set.
    static FmoQuery Points(const database::FmoDefinition& definition, const SelectList& list,
                           const config::ImportExtentBox& extent);
    /// Geometry value, key and every column of all rows; among these, the geometry column is empty where the
    /// database can leave it out.
    static FmoQuery Lines(const database::FmoDefinition& definition);

    const std::string& Shown() const { return shown_; }
    struct Statement {
        std::string sql;
        std::vector<std::string> columns;  ///< names of those that it returns
        /// Rows by the table's own count, where the driver has to be proved.
        std::optional<std::uint64_t> rowCount;
        /// What of the rows is wanted, where the statement gives all of them.
        config::ImportExtentBox extent;
    };
    /// @throws database::DatabaseError when table or columns are missing
    Statement For(database::Connection& connection) const;

private:
    std::string table_, shown_, east_, north_, geometryColumn_;
    std::vector<std::string> first_;  ///< columns in front of the list
    SelectList list_;
    config::ImportExtentBox extent_;
};

}  // namespace vexlator::importer
