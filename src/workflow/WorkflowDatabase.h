// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "platform/Clock.h"

#include <string>
#include <string_view>

/// The workflow software's record of the actions on each job: the log ActionTbl, one row per action, and
/// JobHdr, one row per job with its latest action. The database is the file WorkFlow.MDB in the folder
/// [GENERAL] WORKFLOWSYSTEM, or the server database of [WORKFLOW] CONNECTION in gv.ini.
///
/// No operation throws: an error is shown as a message, and the recorded export stays valid. Each operation
/// opens its own connection and closes it before it returns.
namespace vexlator::workflow {

/// The identity of a job.
struct Job {
    std::string engineer, project, job;
};

/// The job of a run, from its path below WorkFlowDirectory: engineer and project are the first two elements,
/// the job is the file name without extension. All are empty if the path is.
Job JobOf(const config::Run& run);

/// [WORKFLOW] CONNECTION if it is set; else the connection string of the database file. "" if neither key is
/// set or the file is missing or empty. A missing file is shown as its path and " Not Found".
std::string WorkflowConnectionString(config::Run& run);

/// Logs an action, as in "Exported to SHP" or "CLOSED", and makes it the job's current status, in one
/// transaction. Programs that record at the same time wait for each other. Nothing is recorded for the
/// engineer SYSTEM. With an empty project, project and engineer are those of the first logged action of that
/// job; without one, nothing is recorded. On a server, missing tables are created.
/// @returns false if a workflow database is set but could not record the action
bool RecordJobAction(config::Run& run, const std::string& project, const std::string& job,
                     const std::string& engineer, const std::string& action, const platform::DateTime& when);

/// Whether the log contains an export or a closing of the job.
bool JobWasExported(config::Run& run, const std::string& engineer, const std::string& project,
                    const std::string& job);

/// Asks whether the current job may be exported again; false for the answer No. Every exporter calls it
/// before it writes anything. Quiet mode does not ask.
bool ConfirmExportAllowed(config::Run& run);

/// Makes the SQLite file `path` with empty tables ActionTbl and JobHdr. An existing file stays unchanged.
/// @throws platform::WriteError
void CreateWorkflowDatabase(std::string_view path);

/// Whether [WORKFLOW] CONNECTION names a server database.
bool IsOnServer(const config::Run& run);

config::KeyList WorkflowKeys();

}  // namespace vexlator::workflow
