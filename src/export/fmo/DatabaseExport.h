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
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// Where database definitions are and where those go that are missing.
struct DefinitionFolders {
    std::string existing;      ///< FMO files that say where features go
    std::string target;        ///< where definitions are written; they name what is in `existing` or are new
    std::string database;      ///< path of the database file that new definitions name
    bool oneDatabase = false;  ///< every feature goes to `database`, but for those of server databases
};

/// Writes a drawing's layers into the tables that their definitions name, all or none of them.
class DatabaseExport {
public:
    DatabaseExport(config::Run& run, drawing::Drawing& drawing, DefinitionFolders folders,
                   ui::FormView& view);

    /// @throws platform::WriteError: the database, the table, the feature and the reason. Then, as when the
    /// outcome is Failed because a definition cannot be used, no table has changed.
    config::Outcome Run();

private:
    /// Where the features of a layer go.
    struct LayerTarget {
        database::FmoDefinition definition;
        std::string newText;       ///< of the definition's file, when it has to be written
        std::string databaseName;  ///< in databases_
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
    ui::FormView& view_;
    config::Outcome outcome_;
    std::map<std::string, LayerTarget> targets_;  ///< by layer
    ExportDatabases databases_;
    platform::OutputSet files_;
    std::string place_;  ///< the feature that is being written, for errors
};

/// What both database exports do: opens the drawing, renames its features as the settings ask, and writes
/// its layers. `folders` is called when the drawing's job is known.
config::Outcome ExportToDatabase(config::Run& run, std::string_view form, std::string_view drawingPath,
                                 std::string_view targetPath,
                                 const std::function<DefinitionFolders()>& folders);

/// The name of the job's database: that of the drawing's job, else of the drawing.
std::string JobDatabaseName(const config::Run& run, std::string_view drawingPath);

}  // namespace vexlator::exporter
