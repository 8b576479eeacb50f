// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/PostExport.h"

#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "workflow/JobPackage.h"
#include "workflow/WorkflowDatabase.h"

#include <stdexcept>
#include <string>

namespace vexlator::startup {

namespace {

/// A failure here does not affect the export.
bool RecordExport(config::Run& run, const ExportCommand& command) {
    if (run.Job().relative.empty()) return true;
    const workflow::Job job = workflow::JobOf(run);
    const std::string name = util::BaseNameOf(command.drawingPath);
    auto record = [&](const std::string& action) {
        return workflow::RecordJobAction(run, job.project, name, job.engineer, action, run.Now());
    };
    bool closes = command.code == "FMO" || command.code == "PDB";
    if (record("Exported to " + command.code) && (!closes || record("CLOSED"))) return true;
    run.Ui().Report("The export is complete, but the workflow database has no record of it");
    return false;
}

void ListMissingPhotos(config::Run& run, const ExportCommand& command) {
    std::string path = util::JoinPath(command.targetPath, "MissingPhotos.LST");
    const std::string& missing = run.MissingPhotos();
    if (missing.empty())
        platform::RemoveFile(path);
    else if (!util::WriteTextFile(path, missing))
        throw platform::WriteError(platform::NativePath(path), "cannot be written");
}

/// A failure here does not affect the exports.
bool Pack(config::Run& run, const ExportCommand& command) {
    try {
        workflow::frmZip2(run).ZipJobFolder(util::JoinPath(command.targetPath, "*.*"));
        return true;
    } catch (const std::runtime_error& error) {
        run.Ui().ShowMessage("The export is complete, but its archive was not made: " +
                             std::string(error.what()));
        return false;
    }
}

}  // namespace

bool RunPostExportSteps(config::Run& run, const ExportCommand& command) {
    bool isRecorded = RecordExport(run, command);
    ListMissingPhotos(run, command);
    bool isPacked = !run.Settings().CreateZip || Pack(run, command);
    return isRecorded && isPacked;
}

}  // namespace vexlator::startup
