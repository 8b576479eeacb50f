// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "platform/Clock.h"

#include <string>
#include <string_view>

/// The workflow software's record of what was done with each job: the log ActionTbl, one row per action, and
/// JobHdr, one row per job with its latest action. The database is the file WorkFlow.MDB in the folder
/// [GENERAL] WORKFLOWSYSTEM, or the server database that [WORKFLOW] CONNECTION of gv.ini names.
///
/// No operation throws: what goes wrong is shown as a message, and the export that is being recorded stands.
/// Each opens its own connection and closes it before it returns.
namespace vexlator::workflow {

/// What identifies a job.
struct Job {
    std::string engineer, project, job;
};

/// The job of a run, from its path below WorkFlowDirectory: engineer and project are the first two elements,
/// the job is the file name without extension. All empty when that path is.
Job JobOf(const config::Run& run);

/// [WORKFLOW] CONNECTION when it is set; else the connection string of the database file. "" when neither key
/// is set or the file is missing or empty; a missing file is shown as its path and " Not Found".
std::string WorkflowConnectionString(config::Run& run);

/// Logs an action, as in "Exported to SHP" or "CLOSED", and makes it the job's current status, all in one
/// transaction; programs that record at once wait for each other. Nothing is recorded for the engineer
/// SYSTEM. With an empty project, project and engineer are those of the first logged action of that job; if
/// there is none, nothing is recorded. On a server, tables that are missing are created.
void RecordJobAction(config::Run& run, const std::string& project, const std::string& job,
                     const std::string& engineer, const std::string& action, const platform::DateTime& when);

/// Whether the log holds an export or a closing of the job.
bool JobWasExported(config::Run& run, const std::string& engineer, const std::string& project,
                    const std::string& job);

/// Asks whether the current job may be exported although it was exported before; false when the answer is No.
/// Called by every exporter before it writes anything. Quiet mode goes on without asking.
bool ConfirmExportAllowed(config::Run& run);

/// Makes the SQLite file `path` with empty tables ActionTbl and JobHdr. A file that is there stays as it is.
/// @throws platform::WriteError
void CreateWorkflowDatabase(std::string_view path);

/// Whether [WORKFLOW] CONNECTION names a server database.
bool IsOnServer(const config::Run& run);

config::KeyList WorkflowKeys();

}  // namespace vexlator::workflow
