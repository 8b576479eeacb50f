// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/FmoDefinition.h"
#include "database/Statement.h"
#include "database/Table.h"
#include "drawing/Drawing.h"
#include "export/fmo/FeatureColumns.h"

#include <cstdint>
#include <map>
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
    bool Write(drawing::EntityView entity);
    /// To be called behind the last feature.
    void Finish();
    /// How many of the features written last are not in the database yet: an error may be about any of them.
    std::size_t Pending() const { return pending_; }
    /// How many values, by the names of their attributes, no column has taken.
    const std::map<std::string, std::uint64_t>& ValuesLost() const { return lost_; }

private:
    using Value = database::Value;

    void Create();
    void AddMissingColumns(database::Transaction& transaction);
    void PrepareStatements();
    bool SetPlace(drawing::EntityView entity);
    void SetAttributes(drawing::EntityView entity);
    void CountLost(drawing::EntityView entity);
    bool IsCoordinate(std::string_view text) const;
    void Flush();
    std::string InsertStatement(std::size_t rows) const;
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
    std::size_t rowsAtOnce_ = 1;
    std::size_t pending_ = 0;
    std::vector<Value> batch_;             ///< the records of pending features
    std::vector<std::string> geometries_;  ///< that they refer to, as do keys_: one for each
    std::vector<std::string> keys_;
    std::vector<Value> values_;            ///< of the current feature: one for each of quoted_, then the key
    std::vector<std::string_view> texts_;  ///< of its attributes
    std::unordered_set<std::string> keysWritten_;
    bool hasOwnIndex_ = false;
    std::map<std::string, std::uint64_t> lost_;
};

}  // namespace vexlator::exporter
