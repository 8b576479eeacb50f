// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/fmo/frmMDB.h"

#include "export/ExportSettings.h"
#include "export/fmo/DatabaseExport.h"
#include "platform/Paths.h"
#include "util/Paths.h"

namespace vexlator::exporter {

config::Outcome frmMDB::Start(std::string_view drawingPath, std::string_view targetPath) {
    return ExportToDatabase(run_, "frmMDB", drawingPath, targetPath, [&] {
        bool ofJob = ReadExportSettings(run_).oneDatabaseOfJob;
        std::string name =
            ofJob ? JobDatabaseName(run_, drawingPath) : std::string(util::BaseNameOf(drawingPath));
        DefinitionFolders folders;
        folders.existing = folders.target = platform::AbsolutePath(targetPath);
        folders.database =
            util::JoinPath(folders.target, util::SafeFileName(ProjectPrefix(run_) + name) + ".MDB");
        return folders;
    });
}

}  // namespace vexlator::exporter
