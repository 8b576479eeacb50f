// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/fmo/DatabaseExport.h"

#include "config/Ini.h"
#include "database/DatabaseError.h"
#include "database/Table.h"
#include "drawing/FieldMapping.h"
#include "export/ColumnMatch.h"
#include "export/ExportSettings.h"
#include "export/LeftOutEntities.h"
#include "export/fmo/FeatureColumns.h"
#include "export/fmo/FeatureTable.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "workflow/WorkflowDatabase.h"

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <utility>

namespace vexlator::exporter {

using database::DatabaseError;
using database::FmoDefinition;
using drawing::AtpField;
using drawing::Kind;
using platform::SameNoCase;

namespace {

bool HasKind(const drawing::SelectionSet& set, std::initializer_list<Kind> kinds) {
    return std::ranges::any_of(set.indexes(), [&](std::uint32_t index) {
        return std::ranges::find(kinds, set.entity(index).kindCode()) != kinds.end();
    });
}

/// Names of a folder's files in small letters: to look for each by itself would list the folder each time.
std::set<std::string> NamesIn(const std::string& folder) {
    std::set<std::string> names;
    for (const std::string& name : platform::ListFiles(folder)) names.insert(platform::LowerAscii(name));
    return names;
}

/// Whether a folder has that file, and not an empty one.
bool IsIn(const std::set<std::string>& names, const std::string& path) {
    return names.contains(platform::LowerAscii(util::FileNameOf(path))) && util::FileSize(path) > 0;
}

/// `name`, or with a number behind it when a field of the template is called so.
std::string FreeName(const std::vector<AtpField>& fields, const std::string& name) {
    std::string candidate = name;
    auto taken = [&](const AtpField& field) { return SameNoCase(field.name, candidate); };
    for (int n = 1; std::ranges::any_of(fields, taken); ++n) candidate = name + std::to_string(n);
    return candidate;
}

bool IsComplete(const FmoDefinition& definition) {
    bool hasPlace = definition.IsLineTable() || (!definition.east.empty() && !definition.north.empty());
    return !definition.table.empty() && !definition.database.empty() && !definition.key.empty() && hasPlace;
}

std::string DefinitionText(const FmoDefinition& definition) {
    std::string text;
    auto set = [&](std::string_view key, const std::string& value) {
        if (!value.empty()) text = config::WithIniValue(text, "DEF", key, value);
    };
    set("MDB", definition.database);
    set("TABLE", definition.table);
    set("KEY", definition.key);
    set("EAST", definition.east);
    set("NORTH", definition.north);
    set("ENBLOB", definition.geometryColumn);
    return text;
}

/// The key first, as in templates, then the other columns without those of the position.
std::vector<std::string> TemplateNames(const FmoDefinition& definition, const database::Table& table) {
    std::vector<std::string> names{definition.key};
    for (const database::Table::ColumnInfo& column : table.Columns())
        if (!SameNoCase(column.plain, definition.key) && !SameNoCase(column.plain, definition.east) &&
            !SameNoCase(column.plain, definition.north) &&
            !SameNoCase(column.plain, definition.geometryColumn))
            names.push_back(column.plain);
    return names;
}

std::string PlaceOf(const drawing::EntityView& last, const FeatureTable& table) {
    if (table.Pending() <= 1) return ", feature " + last.handle();
    return ", one of the " + std::to_string(table.Pending()) + " features up to " + last.handle();
}

}  // namespace

DatabaseExport::DatabaseExport(config::Run& run, drawing::Drawing& drawing, DefinitionFolders folders,
                               ui::FormView& view)
    : run_(run), drawing_(drawing), folders_(std::move(folders)), view_(view), databases_(run) {}

config::Outcome DatabaseExport::Run() {
    outcome_.target = folders_.target;
    existing_ = NamesIn(folders_.existing);
    own_ = NamesIn(folders_.target);
    ForEachLayer(run_, drawing_, view_, LayerZero::Skip, [&](const WholeLayer& layer) { AddTarget(layer); });
    if (outcome_.status == config::Outcome::Status::Done && !databases_.OpenAll())
        outcome_.status = config::Outcome::Status::Failed;
    if (outcome_.status != config::Outcome::Status::Done) return outcome_;
    ForEachLayer(run_, drawing_, view_, LayerZero::Skip,
                 [&](const WholeLayer& layer) { ExportLayerRows(layer); });
    files_.Finish();
    try {
        databases_.Commit();
    } catch (const DatabaseError& error) {
        throw platform::WriteError(platform::NativePath(folders_.target), error.what());
    }
    files_.Commit();
    return outcome_;
}

void DatabaseExport::AddTarget(const WholeLayer& layer) {
    if (!HasKind(layer.set, {Kind::Point, Kind::Insert, Kind::Polyline})) return LeaveOut(layer);
    LayerTarget target = TargetOf(layer);
    if (!IsComplete(target.definition)) {
        outcome_.status = config::Outcome::Status::Failed;
        return;
    }
    target.databaseName = databases_.Add(target.definition);
    targets_.emplace(layer.layer.name, std::move(target));
}

/// A layer without a table.
void DatabaseExport::LeaveOut(const WholeLayer& layer) {
    LeftOutEntities leftOut;
    for (std::uint32_t index : layer.set.indexes()) leftOut.Add(layer.set.entity(index).kindCode());
    leftOut.Report(run_, layer.layer.name);
}

void DatabaseExport::ExportLayerRows(const WholeLayer& layer) {
    auto found = targets_.find(layer.layer.name);
    if (found == targets_.end()) return;
    const FmoDefinition& definition = found->second.definition;
    try {
        WriteRows(layer, found->second);
    } catch (const DatabaseError& error) {
        throw platform::WriteError(platform::NativePath(definition.database),
                                   "table " + definition.table + place_ + ": " + error.what());
    }
}

DatabaseExport::LayerTarget DatabaseExport::TargetOf(const WholeLayer& layer) const {
    std::string prefix = ProjectPrefix(run_);
    std::string own = util::JoinPath(folders_.target, util::SafeFileName(prefix + layer.fileName) + ".FMO");
    std::string shared = util::JoinPath(folders_.existing, layer.fileName + ".FMO");
    LayerTarget target;
    FmoDefinition& definition = target.definition;
    if (IsIn(own_, own)) {
        definition = database::ReadFmoDefinition(run_, database::ReadFmoFile(own));
        return target;
    }
    if (!IsIn(existing_, shared)) {
        definition = NewDefinition(layer, prefix);
        target.newText = DefinitionText(definition);
    } else {
        database::FmoFile file = database::ReadFmoFile(shared);
        definition = database::ReadFmoDefinition(run_, file);
        definition.table = prefix + definition.table;
        if (folders_.oneDatabase && database::IsDatabaseFile(definition))
            definition.database = folders_.database;
        target.newText = config::WithIniValue(file.text, "DEF", "TABLE", definition.table);
        target.newText = config::WithIniValue(target.newText, "DEF", "MDB", definition.database);
    }
    definition.definitionPath = own;
    return target;
}

FmoDefinition DatabaseExport::NewDefinition(const WholeLayer& layer, const std::string& prefix) const {
    std::vector<AtpField> fields = drawing::ReadAtpFields(TemplateFor(run_, layer));
    FmoDefinition definition;
    definition.database = folders_.database;
    definition.table = prefix + layer.layer.name;
    definition.key = fields.empty() ? "HANDLE" : ColumnName(fields[0].name, 0);
    if (HasKind(layer.set, {Kind::Polyline})) {
        definition.geometryColumn = FreeName(fields, "GEOMETRY");
    } else {
        definition.east = FreeName(fields, "EAST");
        definition.north = FreeName(fields, "NORTH");
    }
    return definition;
}

/// The fields of the code's template. A missing template is made from the table, or else from the layer.
std::vector<AtpField> DatabaseExport::FieldsOf(const WholeLayer& layer, const FmoDefinition& definition,
                                               database::Connection& connection) {
    std::string path = drawing::AtpPathFor(run_, layer.layer.name);
    if (util::FileSize(path) == 0)
        if (auto table = database::Table::Find(connection, definition.table))
            drawing::WriteAtpFromFields(path, TemplateNames(definition, *table));
    return drawing::ReadAtpFields(TemplateFor(run_, layer));
}

void DatabaseExport::WriteRows(const WholeLayer& layer, const LayerTarget& target) {
    place_.clear();
    ExportDatabases::Open& open = databases_.Named(target.databaseName);
    FeatureColumns columns(target.definition, FieldsOf(layer, target.definition, *open.connection), layer.set,
                           run_.Settings().MatchNames);
    FeatureTable table(*open.connection, *open.transaction, target.definition, columns);
    std::uint64_t done = 0, written = 0;
    LeftOutEntities leftOut;
    for (std::uint32_t index : layer.set.indexes()) {
        drawing::EntityView entity = layer.set.entity(index);
        try {
            if (table.Write(entity))
                ++written;
            else
                leftOut.Add(entity.kindCode());
        } catch (const DatabaseError&) {
            place_ = PlaceOf(entity, table);
            throw;
        }
        view_.Progress(++done, layer.set.count());
    }
    place_ = PlaceOf(layer.set.item(layer.set.count() - 1), table);
    table.Finish();
    place_.clear();
    if (!target.newText.empty()) files_.Add(target.definition.definitionPath).Write(target.newText);
    ++outcome_.layers;
    outcome_.features += written;
    for (const auto& [name, count] : table.ValuesLost())
        run_.Losses().Count(config::LossReport::Kind::NoColumn, layer.layer.name, name, count);
    ReportOtherNames(run_, layer.layer.name, columns.Others());
    leftOut.Report(run_, layer.layer.name);
}

config::Outcome ExportToDatabase(config::Run& run, std::string_view form, std::string_view drawingPath,
                                 std::string_view targetPath,
                                 const std::function<DefinitionFolders()>& folders) {
    BegunExport begun = BeginExport(run, form, drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    drawing::Drawing drawing;
    OpenWhole(begun, drawingPath, drawing);
    drawing::ApplyFeatureChanges(run, drawing, "");
    return DatabaseExport(run, drawing, folders(), *begun.view).Run();
}

std::string JobDatabaseName(const config::Run& run, std::string_view drawingPath) {
    std::string job = workflow::JobOf(run).job;
    return util::SafeFileName(job.empty() ? util::BaseNameOf(drawingPath) : job);
}

}  // namespace vexlator::exporter
