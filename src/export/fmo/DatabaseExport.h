// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "database/FmoDefinition.h"
#include "drawing/AttributeTemplate.h"
#include "drawing/Drawing.h"
#include "export/LayerLoop.h"
#include "export/fmo/ExportDatabases.h"
#include "platform/OutputSet.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// The folders of existing and of new database definitions.
struct DefinitionFolders {
    std::string existing;  ///< FMO files that name the tables for features
    std::string target;    ///< folder for new definitions; they name the databases of `existing` or are new
    std::string database;  ///< path of the database file for new definitions
    bool oneDatabase = false;  ///< every feature goes to `database`, except those of server databases
};

/// Writes a drawing's layers into the tables of their definitions, all or none of them.
class DatabaseExport {
public:
    DatabaseExport(config::Run& run, drawing::Drawing& drawing, DefinitionFolders folders,
                   ui::FormView& view);

    /// @throws platform::WriteError: the database, the table, the feature and the reason. Then no table has
    /// changed. The same holds if the outcome is Failed because a definition cannot be used.
    config::Outcome Run();

private:
    /// The target of a layer's features.
    struct LayerTarget {
        database::FmoDefinition definition;
        std::string newText;       ///< text of the definition's file, if it has to be written
        std::string databaseName;  ///< key in databases_
    };

    void AddTarget(const WholeLayer& layer);
    void LeaveOut(const WholeLayer& layer);
    LayerTarget TargetOf(const WholeLayer& layer) const;
    void ExportLayerRows(const WholeLayer& layer);
    database::FmoDefinition NewDefinition(const WholeLayer& layer, const std::string& prefix) const;
    std::vector<drawing::AtpField> FieldsOf(const WholeLayer& layer,
                                            const database::FmoDefinition& definition,
                                            database::Connection& connection);
    void WriteRows(const WholeLayer& layer, const LayerTarget& target);

    config::Run& run_;
    drawing::Drawing& drawing_;
    DefinitionFolders folders_;
    std::set<std::string> existing_, own_;  ///< names of files in the folders of definitions
    ui::FormView& view_;
    config::Outcome outcome_;
    std::map<std::string, LayerTarget> targets_;  ///< by layer
    ExportDatabases databases_;
    platform::OutputSet files_;
    std::string place_;  ///< the current feature, for errors
};

/// The common part of both database exports: opens the drawing, renames its features by the settings, and
/// writes its layers. Calls `folders` when the drawing's job is known.
config::Outcome ExportToDatabase(config::Run& run, std::string_view form, std::string_view drawingPath,
                                 std::string_view targetPath,
                                 const std::function<DefinitionFolders()>& folders);

/// The name of the job's database: that of the drawing's job, else of the drawing.
std::string JobDatabaseName(const config::Run& run, std::string_view drawingPath);

}  // namespace vexlator::exporter
