// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Errors.h"
#include "platform/Process.h"
#include "support/Installation.h"
#include "support/Processes.h"
#include "support/TestDatabase.h"
#include "support/TestUi.h"
#include "workflow/WorkflowDatabase.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vexlator::workflow {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

Texts Sorted(Texts texts) {
    std::ranges::sort(texts);
    return texts;
}

constexpr platform::DateTime morning{2024, 3, 5, 9, 7, 0}, evening{2024, 3, 5, 21, 0, 30};

/// A run whose gv.ini names the database under test.
class WorkflowTest : public test::OnEachDatabase {
protected:
    void SetUp() override {
        OnEachDatabase::SetUp();
        if (GetParam() == test::DatabaseKind::Sqlite) {
            CreateWorkflowDatabase(folder_ / "WorkFlow.MDB");
            fs::create_symlink("WorkFlow.MDB", folder_ / "test.sqlite");
            installation_.Settings().WorkFlowSystem = folder_.Path();
        } else {
            folder_.Write("gv.ini", "[WORKFLOW]\nCONNECTION=" + ConnectionString() + "\n");
        }
        installation_.Settings().IniFilePath = folder_ / "gv.ini";
    }

    test::TestUi ui_;
    config::Installation installation_;
    config::Run run_{installation_, ui_};
};

TEST_P(WorkflowTest, RecordsWhatWasDoneWithAJob) {
    const Job jobs[] = {{"smith", "P1", "Survey"},
                        {"O'Brien", "x'; DROP TABLE JobHdr; --", "a\"b;c"},
                        {"Ångström", "Жёлтый 日本 😀", "%"}};
    const std::string user = platform::CurrentUser();
    Texts log, headers;
    for (const Job& j : jobs) {
        RecordJobAction(run_, j.project, j.job, j.engineer, "Imported", morning);
        EXPECT_FALSE(JobWasExported(run_, j.engineer, j.project, j.job));
        RecordJobAction(run_, j.project, j.job, j.engineer, "Exported to SHP", evening);
        EXPECT_TRUE(JobWasExported(run_, j.engineer, j.project, j.job));
        EXPECT_FALSE(JobWasExported(run_, j.engineer, j.project, "other"));
        std::string key = j.engineer + "|" + j.project + "|" + j.job + "|";
        log.push_back(key + "Imported|2024-03-05 09:07:00|" + user);
        log.push_back(key + "Exported to SHP|2024-03-05 21:00:30|" + user);
        headers.push_back(key + "Exported to SHP|2024-03-05 21:00:30");
    }
    EXPECT_EQ(
        Sorted(Rows(
            R"(SELECT "Engineer","Project","Job","ActionDesc","DateStamp","ActionedBy" FROM "ActionTbl")")),
        Sorted(log));
    EXPECT_EQ(
        Sorted(Rows(R"(SELECT "Engineer","Project","Job","Current Status","LastChange" FROM "JobHdr")")),
        Sorted(headers));
    EXPECT_EQ(ui_.messages, Texts{});
}

TEST_P(WorkflowTest, CountsAClosingAsAnExportAndLeavesSystemJobsAlone) {
    RecordJobAction(run_, "P", "J", "e", "CLOSED", morning);
    EXPECT_TRUE(JobWasExported(run_, "e", "P", "J"));
    RecordJobAction(run_, "P", "J2", "System", "Exported to SHP", morning);
    RecordJobAction(run_, "", "never seen", "e", "Exported to SHP", morning);
    EXPECT_EQ(Rows(R"(SELECT "Job" FROM "ActionTbl")"), Texts{"J"});
    RecordJobAction(run_, "", "J", "somebody", "Exported to MID", evening);
    EXPECT_EQ(Rows(R"(SELECT "Project","Engineer" FROM "ActionTbl" WHERE "ActionDesc"='Exported to MID')"),
              Texts{"P|e"});
    EXPECT_EQ(Rows(R"(SELECT "Engineer","Current Status" FROM "JobHdr")"), Texts{"e|Exported to MID"});
}

TEST_P(WorkflowTest, SixteenExportsAtOnceLoseNoRow) {
    auto record = [this](int) {
        RecordJobAction(run_, "P'1", "Jøb", "e", "Exported to SHP", morning);
        for (const std::string& message : ui_.messages) std::fprintf(stderr, "%s\n", message.c_str());
        return ui_.messages.empty();
    };
    test::RunAtOnce(16, record);
    EXPECT_EQ(Rows(R"(SELECT count(*) FROM "ActionTbl")"), Texts{"16"});
    EXPECT_EQ(Rows(R"(SELECT count(*) FROM "JobHdr")"), Texts{"1"});

    // The same with a JobHdr made by the workflow software, without a unique key.
    database::Connection(ConnectionString()).Execute(R"(DROP TABLE "JobHdr")");
    database::Connection(ConnectionString())
        .Execute(
            R"(CREATE TABLE jobhdr (id INTEGER, engineer TEXT, project TEXT, job TEXT, "CURRENT STATUS" TEXT, lastchange TIMESTAMP))");
    test::RunAtOnce(16, record);
    EXPECT_EQ(Rows(R"(SELECT count(*) FROM "ActionTbl")"), Texts{"32"});
    EXPECT_EQ(Rows(R"(SELECT job, "CURRENT STATUS" FROM jobhdr)"), Texts{"Jøb|Exported to SHP"});
}

VEXLATOR_ON_EACH_DATABASE(WorkflowTest);

/// The user's messages if a database file cannot be used. No failure may affect the export.
class WorkflowFileTest : public test::InstallationTest {
protected:
    WorkflowFileTest() { installation.Settings().WorkFlowSystem = folder.Path(); }
    std::string File() const { return folder / "WorkFlow.MDB"; }
    /// The messages of recording and of asking.
    Texts Messages() {
        ui.messages.clear();
        RecordJobAction(run, "P", "J", "e", "CLOSED", morning);
        EXPECT_FALSE(JobWasExported(run, "e", "P", "J"));
        return ui.messages;
    }
};

TEST_F(WorkflowFileTest, TellsWhatIsWrongWithTheFile) {
    const std::string noConnection = "Error Opening Connection:" + File() + ": neither",
                      noAccess = "Attempted To Access " + File() + "\nQuery ";
    folder.Write("WorkFlow.MDB", "");
    EXPECT_EQ(Messages(), Texts(2, File() + " Not Found"));
    folder.Write("WorkFlow.MDB", "no database at all");
    for (const std::string& text : Messages()) EXPECT_TRUE(text.starts_with(noConnection)) << text;

    fs::remove(File());
    CreateWorkflowDatabase(File());
    std::string whole = test::TempFolder::Read(File());
    for (std::size_t from : {16, 100, 4096}) {
        folder.Write("WorkFlow.MDB", whole.substr(0, from) + std::string(whole.size() - from, '\xa5'));
        Texts texts = Messages();
        ASSERT_EQ(texts.size(), 2U) << from;
        EXPECT_TRUE(texts[0].starts_with(noAccess) || texts[0].starts_with("Error Opening Connection:"));
        EXPECT_TRUE(texts[1].starts_with("JOB already Exported Error:") || texts[1] == texts[0]) << texts[1];
    }

    fs::remove(File());
    database::Connection(database::SqliteConnectionString(File())).Execute("CREATE TABLE other (x INTEGER)");
    EXPECT_EQ(Messages(), (Texts{noAccess + "SELECT * FROM ActionTbl\nthere is no such table",
                                 "JOB already Exported Error:there is no such table"}));
}

/// Gives up root's rights for a while, because read-only files do not bind root.
class AsNobody {
public:
    AsNobody() { EXPECT_TRUE(::geteuid() != 0 || ::seteuid(65534) == 0); }
    ~AsNobody() { EXPECT_EQ(::seteuid(::getuid()), 0); }
};

TEST_F(WorkflowFileTest, ReadOnlyDatabaseLosesTheActionOnly) {
    CreateWorkflowDatabase(File());
    ASSERT_EQ(::chmod(File().c_str(), 0444), 0);
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0555), 0);
    {
        AsNobody nobody;
        Texts texts = Messages();
        ASSERT_EQ(texts.size(), 1U);
        EXPECT_TRUE(texts[0].starts_with("Attempted To Access " + File() + "\nQuery ")) << texts[0];
        EXPECT_NE(texts[0].find("readonly"), std::string::npos) << texts[0];
    }
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
}

}  // namespace vexlator::workflow
