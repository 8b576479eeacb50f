// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/FmoDefinition.h"
#include "database/Statement.h"
#include "database/Table.h"
#include "drawing/Drawing.h"
#include "export/fmo/FeatureColumns.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace vexlator::exporter {

/// The database table of one layer while features are written to it, inside a transaction of the caller's.
/// Every member throws database::DatabaseError.
class FeatureTable {
public:
    /// Makes the table when it is missing and gives it the columns that it lacks. Other programs cannot write
    /// to it from here on. All arguments outlive this object.
    FeatureTable(database::Connection& connection, database::Transaction& transaction,
                 const database::FmoDefinition& definition, const FeatureColumns& columns);

    /// Writes the feature's record: inserts it, or replaces the one with its key, whose other columns stay.
    /// Features of one export that share a key all get a record. False when the table has no place for such
    /// an entity.
    bool Write(drawing::Entity entity);
    /// To be called behind the last feature.
    void Finish();

private:
    using Value = database::Value;

    void Create();
    void AddMissingColumns(database::Transaction& transaction);
    void PrepareStatements();
    bool SetPlace(drawing::Entity entity);
    void SetAttributes(drawing::Entity entity);
    Value ValueFor(std::size_t column, std::string_view text) const;
    void IndexKeys();
    void CreateIndex(std::string_view name);

    database::Connection& connection_;
    const database::FmoDefinition& definition_;
    const FeatureColumns& columns_;
    bool isNew_ = false;
    std::optional<database::Table> table_;
    std::vector<std::string> quoted_;          ///< columns that are written: the place, then attributes
    std::vector<std::size_t> written_;         ///< attribute columns among them, into columns_
    std::vector<database::ColumnType> types_;  ///< of all of columns_
    std::optional<database::Statement> insert_, update_, delete_;
    std::vector<Value> values_;            ///< one for each of quoted_, then the key again
    std::vector<std::string_view> texts_;  ///< of the current feature's attributes
    std::string geometry_, key_;
    std::unordered_set<std::string> keys_;  ///< written so far
    bool hasOwnIndex_ = false;
};

}  // namespace vexlator::exporter
