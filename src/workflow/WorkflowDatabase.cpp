// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "workflow/WorkflowDatabase.h"

#include "database/ConnectionString.h"
#include "database/Statement.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Process.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"
#include "workflow/WorkflowTables.h"

#include <algorithm>
#include <memory>

namespace vexlator::workflow {

using database::Connection;
using database::DatabaseError;
using database::Statement;
using database::Table;

namespace {

struct WorkflowSettings {
    std::string connection;
};

using Keys = config::Keys<WorkflowSettings>;

constexpr config::KeyOf<WorkflowSettings> keys[] = {
    Keys::Text("WORKFLOW", "CONNECTION", &WorkflowSettings::connection,
               "ODBC connection to a shared workflow database, as in Driver=PostgreSQL Unicode;Server=...",
               "WorkFlow.MDB in WorkFlowSystem"),
};

std::string ServerConnection(const config::Run& run) {
    return config::ReadKeys<WorkflowSettings>(run.Installation(), keys).connection;
}

std::string DatabasePath(const config::Run& run) {
    const std::string& folder = run.Settings().WorkFlowSystem;
    return folder.empty() ? "" : util::JoinPath(folder, "WorkFlow.MDB");
}

bool HasWorkflowDatabase(const config::Run& run) {
    return !ServerConnection(run).empty() || !DatabasePath(run).empty();
}

/// The database's name for the user.
std::string DatabaseName(const config::Run& run) {
    std::string server = ServerConnection(run);
    return server.empty() ? platform::NativePath(DatabasePath(run))
                          : database::ConnectionString(server).WithoutPasswords();
}

/// The open connection; null without a workflow database, or, with a message, if it cannot be opened.
std::unique_ptr<Connection> OpenWorkflowConnection(config::Run& run) {
    std::string connectionString = WorkflowConnectionString(run);
    if (connectionString.empty()) return nullptr;
    run.DebugMessage("About To Connect");
    try {
        return std::make_unique<Connection>(connectionString);
    } catch (const DatabaseError& error) {
        run.Ui().ShowMessage("Error Opening Connection:" + std::string(error.what()));
        return nullptr;
    }
}

/// The workflow software defines the tables of a database file. On a server we create them.
void PrepareTables(const config::Run& run, Connection& connection) {
    if (IsOnServer(run)) CreateMissingTables(connection);
}

/// "Job"=? AND "Project"=? AND "Engineer"=?
std::string KeyCondition(const Table& table) {
    return table.Column("Job") + "=? AND " + table.Column("Project") + "=? AND " + table.Column("Engineer") +
           "=?";
}

/// Sets project and engineer from the first logged action of the job.
void CompleteFromLog(Connection& connection, const Table& log, Job& job) {
    Statement find(connection, "SELECT " + log.Column("Project") + ", " + log.Column("Engineer") + " FROM " +
                                   log.Name() + " WHERE " + log.Column("Job") + "=?");
    find.Execute({job.job});
    if (!find.Next()) return;
    job.project = find.Text(0);
    job.engineer = find.Text(1);
}

void LogAction(config::Run& run, Connection& connection, const Table& log, const Job& job,
               const std::string& action, const platform::DateTime& when) {
    std::string query = "INSERT INTO " + log.Name() + " (" + log.Column("Project") + ", " +
                        log.Column("Job") + ", " + log.Column("Engineer") + ", " + log.Column("ActionDesc") +
                        ", " + log.Column("DateStamp") + ", " + log.Column("ActionedBy") +
                        ") VALUES (?, ?, ?, ?, ?, ?)";
    run.DebugMessage(query);
    std::string user = platform::CurrentUser();
    Statement(connection, query).Execute({job.project, job.job, job.engineer, action, when, user});
}

void SetStatus(Connection& connection, const Table& headers, const Job& job, const std::string& action,
               const platform::DateTime& when) {
    const std::string &status = headers.Column("Current Status"), &change = headers.Column("LastChange");
    Statement update(connection, "UPDATE " + headers.Name() + " SET " + status + "=?, " + change +
                                     "=? WHERE " + KeyCondition(headers));
    update.Execute({action, when, job.job, job.project, job.engineer});
    if (update.RowsAffected() > 0) return;
    Statement insert(connection, "INSERT INTO " + headers.Name() + " (" + headers.Column("Engineer") + ", " +
                                     headers.Column("Project") + ", " + headers.Column("Job") + ", " +
                                     status + ", " + change + ") VALUES (?, ?, ?, ?, ?)");
    insert.Execute({job.engineer, job.project, job.job, action, when});
}

/// One transaction that holds the write lock from before its first query. Otherwise two programs could both
/// find no header row and both add one, in databases whose JobHdr has no unique key.
void Record(config::Run& run, Connection& connection, Job job, const std::string& action,
            const platform::DateTime& when) {
    PrepareTables(run, connection);
    Table log = TableOf(connection, "ActionTbl"), headers = TableOf(connection, "JobHdr");
    database::Transaction transaction(connection);
    transaction.LockTable(headers.Name());
    if (job.project.empty()) CompleteFromLog(connection, log, job);
    if (job.project.empty()) return;
    LogAction(run, connection, log, job, action, when);
    SetStatus(connection, headers, job, action, when);
    transaction.Commit();
}

}  // namespace

Job JobOf(const config::Run& run) {
    const std::string& path = run.Job().relative;
    std::string slashes = path;
    std::replace(slashes.begin(), slashes.end(), '/', '\\');
    return {std::string(util::GetField(0, slashes, "\\")), std::string(util::GetField(1, slashes, "\\")),
            util::BaseNameOf(path)};
}

std::string WorkflowConnectionString(config::Run& run) {
    if (std::string server = ServerConnection(run); !server.empty()) return server;
    std::string path = DatabasePath(run);
    if (path.empty()) return "";
    if (util::FileSize(path) > 0) return database::AccessConnectionString(path);
    run.Ui().ShowMessage(platform::NativePath(path) + " Not Found");
    return "";
}

bool RecordJobAction(config::Run& run, const std::string& project, const std::string& job,
                     const std::string& engineer, const std::string& action, const platform::DateTime& when) {
    if (platform::SameNoCase(engineer, "SYSTEM") || !HasWorkflowDatabase(run)) return true;
    auto connection = OpenWorkflowConnection(run);
    if (!connection) return false;
    try {
        Record(run, *connection, {engineer, project, job}, action, when);
        return true;
    } catch (const DatabaseError& error) {
        run.Ui().ShowMessage("Attempted To Access " + DatabaseName(run) + "\nQuery " + error.Query() + "\n" +
                             error.what());
        return false;
    }
}

bool JobWasExported(config::Run& run, const std::string& engineer, const std::string& project,
                    const std::string& job) {
    auto connection = OpenWorkflowConnection(run);
    if (!connection) return false;
    try {
        PrepareTables(run, *connection);
        Table log = TableOf(*connection, "ActionTbl");
        const std::string& action = log.Column("ActionDesc");
        Statement find(*connection, "SELECT " + action + " FROM " + log.Name() + " WHERE " +
                                        KeyCondition(log) + " AND (" + action + " LIKE 'Exported to %' OR " +
                                        action + " LIKE 'CLOSED')");
        find.Execute({job, project, engineer});
        return find.Next();
    } catch (const DatabaseError& error) {
        run.Ui().ShowMessage("JOB already Exported Error:" + std::string(error.what()));
        return false;
    }
}

bool ConfirmExportAllowed(config::Run& run) {
    if (run.Job().relative.empty()) return true;
    Job job = JobOf(run);
    if (!JobWasExported(run, job.engineer, job.project, job.job) || run.Options().quiet) return true;
    return run.Ui().AskYesNo("Warning this Job has previously been exported!\nContinue?");
}

void CreateWorkflowDatabase(std::string_view path) {
    if (!platform::FindExisting(path).empty()) return;
    platform::OutputFile file(path);
    try {
        Connection connection(database::SqliteConnectionString(file.TemporaryName()));
        CreateMissingTables(connection);
    } catch (const DatabaseError& error) {
        throw platform::WriteError(file.Name(), error.what());
    }
    file.Commit();
}

bool IsOnServer(const config::Run& run) {
    return !ServerConnection(run).empty();
}

config::KeyList WorkflowKeys() {
    return config::ListOf<WorkflowSettings>(keys);
}

}  // namespace vexlator::workflow
