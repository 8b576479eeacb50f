// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/fmo/FeatureTable.h"

#include "formats/fmo/GeometryValue.h"
#include "util/Text.h"
#include "util/WholeNumber.h"

#include <algorithm>
#include <charconv>

namespace vexlator::exporter {

using database::ColumnType;
using database::Connection;
using database::Table;
using drawing::EntityView;
using drawing::Kind;

namespace {

struct TypeNames {
    std::string_view text, number, coordinate, bytes;
};

TypeNames TypeNamesOf(Connection::Product product) {
    switch (product) {
        case Connection::Product::Sqlite:
            return {"TEXT", "NUMERIC", "DOUBLE", "BLOB"};
        case Connection::Product::PostgreSql:
            return {"TEXT", "NUMERIC", "DOUBLE PRECISION", "BYTEA"};
        case Connection::Product::Other:
            break;
    }
    return {"TEXT", "INTEGER", "DOUBLE", "LONGBINARY"};
}

/// A search for each feature's key reads the whole table if there is no index.
constexpr std::size_t fewFeatures = 100;
/// One statement for several records costs a database much less than one per record.
constexpr std::size_t valuesAtOnce = 400, mostRowsAtOnce = 50;

constexpr std::string_view ownIndex = "vexlator_export_key";

/// The index of tables that we create.
std::string KeyIndexName(const database::FmoDefinition& definition) {
    return definition.table + "_" + definition.key + "_key";
}

bool HasIndex(Connection& connection, const std::string& name) {
    bool sqlite = connection.Kind() == Connection::Product::Sqlite;
    database::Statement find(connection, sqlite ? "SELECT 1 FROM sqlite_master WHERE type='index' AND name=?"
                                                : "SELECT 1 FROM pg_indexes WHERE indexname=?");
    find.Execute({name});
    return find.Next();
}

}  // namespace

FeatureTable::FeatureTable(Connection& connection, database::Transaction& transaction,
                           const database::FmoDefinition& definition, const FeatureColumns& columns)
    : connection_(connection), definition_(definition), columns_(columns) {
    table_ = Table::Find(connection, definition.table);
    if (table_)
        AddMissingColumns(transaction);
    else
        Create();
    PrepareStatements();
}

void FeatureTable::Create() {
    TypeNames types = TypeNamesOf(connection_.Kind());
    std::string columns;
    auto add = [&](std::string_view name, std::string_view type) {
        columns += (columns.empty() ? "" : ", ") + connection_.Quoted(name) + " " + std::string(type);
    };
    add(definition_.key, definition_.keyType == database::KeyType::Numeric ? types.number : types.text);
    if (definition_.IsLineTable()) {
        add(definition_.geometryColumn, types.bytes);
    } else {
        add(definition_.east, types.coordinate);
        add(definition_.north, types.coordinate);
    }
    for (std::size_t i = 1; i < columns_.Names().size(); ++i) add(columns_.Names()[i], types.text);
    connection_.Execute("CREATE TABLE " + connection_.Quoted(definition_.table) + " (" + columns + ")");
    table_ = Table::Find(connection_, definition_.table);
    if (!table_) throw database::DatabaseError("42S02", "the new table cannot be found");
    isNew_ = true;
}

void FeatureTable::AddMissingColumns(database::Transaction& transaction) {
    transaction.LockTable(table_->Name());
    TypeNames types = TypeNamesOf(connection_.Kind());
    bool changed = false;
    auto need = [&](const std::string& name, std::string_view type) {
        if (table_->HasColumn(name)) return;
        connection_.Execute("ALTER TABLE " + table_->Name() + " ADD COLUMN " + connection_.Quoted(name) +
                            " " + std::string(type));
        changed = true;
    };
    table_ = Table::Find(connection_, definition_.table);  // others can have added columns before the lock
    if (definition_.IsLineTable()) {
        need(definition_.geometryColumn, types.bytes);
    } else {
        need(definition_.east, types.coordinate);
        need(definition_.north, types.coordinate);
    }
    for (const std::string& name : columns_.Names()) need(name, types.text);
    if (changed) table_ = Table::Find(connection_, definition_.table);
}

void FeatureTable::PrepareStatements() {
    if (definition_.IsLineTable())
        quoted_ = {table_->Column(definition_.geometryColumn)};
    else
        quoted_ = {table_->Column(definition_.east), table_->Column(definition_.north)};
    for (std::size_t i = 0; i < columns_.Names().size(); ++i) {
        const Table::ColumnInfo* column = table_->FindColumn(columns_.Names()[i]);
        if (!column) throw database::DatabaseError("42S22", "no column \"" + columns_.Names()[i] + "\"");
        types_.push_back(column->type);
        bool unwritten = column->type == ColumnType::Bytes || !columns_.HasSource(i);
        if (i > 0 && unwritten) continue;  // the database keeps its value, or its default
        written_.push_back(i);
        quoted_.push_back(column->quoted);
    }
    std::string changes;
    for (const std::string& name : quoted_) changes += (changes.empty() ? "" : ", ") + name + "=?";
    std::string ofKey = " WHERE " + table_->Column(definition_.key) + "=?";
    if (connection_.Kind() != Connection::Product::Other)
        rowsAtOnce_ = std::clamp<std::size_t>(valuesAtOnce / quoted_.size(), 1, mostRowsAtOnce);
    geometries_.resize(rowsAtOnce_);
    keys_.resize(rowsAtOnce_);
    insert_.emplace(connection_, InsertStatement(rowsAtOnce_));
    update_.emplace(connection_, "UPDATE " + table_->Name() + " SET " + changes + ofKey);
    delete_.emplace(connection_, "DELETE FROM " + table_->Name() + ofKey);
    values_.resize(quoted_.size() + 1);
}

bool FeatureTable::Write(EntityView entity) {
    if (!SetPlace(entity)) return false;
    SetAttributes(entity);
    if (!isNew_ && keysWritten_.insert(keys_[pending_]).second) {
        if (keysWritten_.size() == fewFeatures) IndexKeys();
        update_->Execute(values_);
        if (update_->RowsAffected() == 1) return true;
        if (update_->RowsAffected() > 1) delete_->Execute({values_.back()});
    }
    batch_.insert(batch_.end(), values_.begin(), values_.end() - 1);
    if (++pending_ == rowsAtOnce_) Flush();
    return true;
}

std::string FeatureTable::InsertStatement(std::size_t rows) const {
    std::string names, marks, records;
    for (const std::string& name : quoted_) {
        names += (names.empty() ? "" : ", ") + name;
        marks += marks.empty() ? "?" : ", ?";
    }
    for (std::size_t i = 0; i < rows; ++i) records += (i > 0 ? ", (" : "(") + marks + ")";
    return "INSERT INTO " + table_->Name() + " (" + names + ") VALUES " + records;
}

void FeatureTable::Flush() {
    if (pending_ == rowsAtOnce_)
        insert_->Execute(batch_);
    else if (pending_ > 0)
        database::Statement(connection_, InsertStatement(pending_)).Execute(batch_);
    batch_.clear();
    pending_ = 0;
}

bool FeatureTable::SetPlace(EntityView entity) {
    Kind kind = entity.kindCode();
    if (kind != Kind::Point && kind != Kind::Insert && kind != Kind::Polyline) return false;
    if (definition_.IsLineTable()) {
        bool close = entity.isClosed();
        formats::vArraytoBLOB(entity.planVertices(), close, geometries_[pending_]);
        values_[0] = database::Blob{geometries_[pending_]};
        return true;
    }
    if (kind == Kind::Polyline) return false;
    drawing::Point at = entity.position();
    values_[0] = at.x;
    values_[1] = at.y;
    return true;
}

void FeatureTable::SetAttributes(EntityView entity) {
    texts_.clear();
    for (drawing::ValueCursor values = entity.xproperties().values(); !values.AtEnd();)
        texts_.push_back(values.Next());
    const std::vector<std::size_t>& sources = columns_.SourcesFor(entity);
    bool hasKey = sources[0] != FeatureColumns::none && !texts_[sources[0]].empty();
    if (hasKey)
        keys_[pending_] = texts_[sources[0]];
    else
        keys_[pending_] = entity.handle();
    std::size_t at = quoted_.size() - written_.size();
    for (std::size_t column : written_) {
        if (column == 0)
            values_[at++] = ValueFor(0, keys_[pending_]);
        else if (sources[column] == FeatureColumns::none)
            values_[at++] = nullptr;
        else
            values_[at++] = ValueFor(column, texts_[sources[column]]);
    }
    values_.back() = ValueFor(0, keys_[pending_]);
    CountLost(entity);
}

/// A value that the record contains anyway is not lost: tables that were imported have their key and position
/// twice.
void FeatureTable::CountLost(EntityView entity) {
    for (auto [attribute, twin] : columns_.LeftOversOf(entity)) {
        std::string_view text = texts_[attribute];
        bool isKept = twin == FeatureColumns::none ? IsCoordinate(text) : text == texts_[twin];
        if (!text.empty() && !isKept) ++lost_[std::string(entity.xproperties().name(attribute))];
    }
}

/// Whether a text is one of the record's own values.
bool FeatureTable::IsCoordinate(std::string_view text) const {
    std::optional<double> number = util::WholeNumberOf(text);
    if (!number || definition_.IsLineTable()) return false;
    return *number == std::get<double>(values_[0]) || *number == std::get<double>(values_[1]);
}

/// The value in a form for the column's type: a number for a number column, NULL for an empty text in a
/// column that is not text. The database has to refuse other texts that do not fit.
FeatureTable::Value FeatureTable::ValueFor(std::size_t column, std::string_view text) const {
    if (types_[column] == ColumnType::Text) return text;
    std::string_view trimmed = util::Trim(text);
    if (trimmed.empty()) return nullptr;
    if (types_[column] != ColumnType::Number && types_[column] != ColumnType::Float) return text;
    const char* end = trimmed.data() + trimmed.size();
    std::int64_t whole = 0;
    if (auto [at, error] = std::from_chars(trimmed.data(), end, whole); error == std::errc() && at == end)
        return whole;
    if (std::optional<double> number = util::WholeNumberOf(trimmed)) return *number;
    return text;
}

void FeatureTable::IndexKeys() {
    if (connection_.Kind() == Connection::Product::Other) return;
    if (HasIndex(connection_, KeyIndexName(definition_))) return;
    CreateIndex(ownIndex);
    hasOwnIndex_ = true;
}

void FeatureTable::CreateIndex(std::string_view name) {
    connection_.Execute("CREATE INDEX " + connection_.Quoted(name) + " ON " + table_->Name() + " (" +
                        table_->Column(definition_.key) + ")");
}

void FeatureTable::Finish() {
    Flush();
    if (hasOwnIndex_) connection_.Execute("DROP INDEX " + connection_.Quoted(ownIndex));
    std::string index = KeyIndexName(definition_);
    bool wanted = isNew_ && connection_.Kind() != Connection::Product::Other;
    if (wanted && !HasIndex(connection_, index)) CreateIndex(index);
    insert_.reset();
    update_.reset();
    delete_.reset();
}

}  // namespace vexlator::exporter
