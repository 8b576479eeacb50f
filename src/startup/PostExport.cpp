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

void RecordExport(config::Session& session, const ExportCommand& command) {
    if (session.Settings().JobRelativePath.empty()) return;
    const workflow::Job job = workflow::JobOf(session);
    const std::string name = util::BaseNameOf(command.drawingPath);
    auto record = [&](const std::string& action) {
        workflow::RecordJobAction(session, job.project, name, job.engineer, action, session.Now());
    };
    record("Exported to " + command.code);
    if (command.code == "FMO" || command.code == "PDB") record("CLOSED");
}

void ListMissingPhotos(const config::Session& session, const ExportCommand& command) {
    std::string path = util::JoinPath(command.targetPath, "MissingPhotos.LST");
    const std::string& missing = session.Settings().MissingPhotos;
    if (missing.empty())
        platform::RemoveFile(path);
    else if (!util::WriteTextFile(path, missing))
        throw platform::WriteError(platform::NativePath(path), "cannot be written");
}

/// A failure here does not touch the exports.
bool Pack(config::Session& session, const ExportCommand& command) {
    try {
        workflow::frmZip2(session).ZipJobFolder(util::JoinPath(command.targetPath, "*.*"));
        return true;
    } catch (const std::runtime_error& error) {
        session.Ui().ShowMessage("The export is complete, but its archive was not made: " +
                                 std::string(error.what()));
        return false;
    }
}

}  // namespace

bool RunPostExportSteps(config::Session& session, const ExportCommand& command) {
    RecordExport(session, command);
    ListMissingPhotos(session, command);
    return !session.Settings().CreateZip || Pack(session, command);
}

}  // namespace vexlator::startup
