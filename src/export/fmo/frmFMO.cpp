// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/fmo/frmFMO.h"

#include "export/ExportSettings.h"
#include "export/fmo/DatabaseExport.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"

namespace vexlator::exporter {

config::Outcome frmFMO::Start(std::string_view drawingPath, std::string_view fmoDirectory) {
    if (fmoDirectory.empty()) throw platform::WriteError("FMODirectory", "is not set in gv.ini");
    return ExportToDatabase(run_, "frmFMO", drawingPath, fmoDirectory, [&] {
        DefinitionFolders folders;
        folders.existing = folders.target = platform::AbsolutePath(fmoDirectory);
        std::string database = "Features";
        folders.oneDatabase = ReadExportSettings(run_).oneDatabaseOfJob;
        if (folders.oneDatabase) {
            database = JobDatabaseName(run_, drawingPath);
            folders.target = util::JoinPath(folders.existing, database);
        }
        platform::RequireFolder(folders.target);
        folders.database = util::JoinPath(folders.target, database + ".MDB");
        return folders;
    });
}

}  // namespace vexlator::exporter
