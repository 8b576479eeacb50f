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

/// The database table of one layer while features are written to it, in a transaction of the caller. Every
/// member throws database::DatabaseError.
class FeatureTable {
public:
    /// Creates a missing table and adds missing columns. From now on other programs cannot write to it. All
    /// arguments must outlive this object.
    FeatureTable(database::Connection& connection, database::Transaction& transaction,
                 const database::FmoDefinition& definition, const FeatureColumns& columns);

    /// Writes the feature's record: inserts it, or replaces the record with its key, whose other columns
    /// stay. Features of one export with the same key each get a record. False if the table cannot hold such
    /// an entity.
    bool Write(drawing::EntityView entity);
    /// Call it after the last feature.
    void Finish();
    /// Number of last features that are not in the database yet. An error can concern any of them.
    std::size_t Pending() const { return pending_; }
    /// Number of values without a column, by attribute name.
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
    std::vector<std::string> quoted_;          ///< columns to write: position, then attributes
    std::vector<std::size_t> written_;         ///< the attribute columns among them, as indices into columns_
    std::vector<database::ColumnType> types_;  ///< types of all of columns_
    std::optional<database::Statement> insert_, update_, delete_;
    std::size_t rowsAtOnce_ = 1;
    std::size_t pending_ = 0;
    std::vector<Value> batch_;             ///< records of pending features
    std::vector<std::string> geometries_;  ///< values that they refer to, like keys_: one per record
    std::vector<std::string> keys_;
    std::vector<Value> values_;  ///< values of the current feature: one for each of quoted_, then the key
    std::vector<std::string_view> texts_;  ///< values of its attributes
    std::unordered_set<std::string> keysWritten_;
    bool hasOwnIndex_ = false;
    std::map<std::string, std::uint64_t> lost_;
};

}  // namespace vexlator::exporter
