// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Ini.h"
#include "database/ConnectionString.h"
#include "database/Statement.h"
#include "platform/Errors.h"
#include "startup/Main.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"
#include "util/Text.h"
#include "workflow/WorkflowDatabase.h"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vexlator::startup {
namespace {

namespace fs = std::filesystem;
using config::Outcome;
using Lines = std::vector<std::string>;

Outcome OneFeature() {
    Outcome outcome;
    outcome.features = 1;
    return outcome;
}

/// What the conversions below were called with, and what they do. Calls are plain functions, hence no object.
struct Stub {
    Lines calls;
    std::function<Outcome(config::Run&)> act = [](config::Run&) { return OneFeature(); };
};
Stub stub;

template <int form>
Outcome ImportStub(config::Run& run, const ImportCommand& c) {
    stub.calls.push_back(std::to_string(form) + " " + c.sourcePath + " " + c.sourceFolder + " " + c.fileList);
    return stub.act(run);
}

Outcome ExportStub(config::Run& run, const ExportCommand& c) {
    stub.calls.push_back(c.code + " " + c.drawingPath + " " + c.targetPath);
    return stub.act(run);
}

constexpr ImportRow imports[] = {{"SHP", "frmFromSHP", ImportStub<1>}, {"CSV", "frmFromCSV", ImportStub<2>},
                                 {"PPS", "frmFromCAW", ImportStub<3>}, {"JOB", "frmFromJOB", ImportStub<4>},
                                 {"ADT", "frmFromADT", ImportStub<5>}, {"GML", "frmFromGML", nullptr}};
constexpr ExportRow exports[] = {
    {"SHP", "frmSHP", ExportStub}, {"DWG", "frmDWG", nullptr}, {"FMO", "frmFMO", ExportStub, true}};

class MainTest : public testing::Test {
protected:
    MainTest() {
        stub = Stub();
        ::setenv("VEXLATOR_HOME", home.Path().c_str(), 1);
        ::setenv("VEXLATOR_DRIVES", (home / "drives").c_str(), 1);
        WriteIni("[GENERAL]\nATPDirectory=/atp\nSymbolsDirectory=/sym\nFMODirectory=" + (home / "fmo") +
                 "\nTempDirectory=" + (home / "temp") + "\n");
    }
    void WriteIni(const std::string& text) { home.Write("gv.ini", text); }
    void SetIni(std::string_view section, std::string_view key, std::string_view value) {
        config::WriteIniFile(home / "gv.ini", section, key, value);
    }
    int Run(const std::string& command) {
        ui = test::TestUi();
        MainOptions options{.conversions = {imports, exports},
                            .showSelection = [this](config::Run& run, std::string_view received) {
                                settings = run.Settings();
        asked = run.Options();
                                selections.emplace_back(received);
                                return ExitStatus::Done;
                            }};
        return static_cast<int>(Main(command, ui, options));
    }
    /// Gives the installation an empty workflow database.
    void UseWorkflow() {
        fs::create_directory(home / "WorkFlow");
        workflow::CreateWorkflowDatabase(home / "WorkFlow/WorkFlow.MDB");
        SetIni("GENERAL", "WorkFlowSystem", home / "WorkFlow");
    }
    /// What the workflow database holds, one line per action.
    Lines Actions() const {
        database::Connection connection(database::AccessConnectionString(home / "WorkFlow/WorkFlow.MDB"));
        database::Statement query(connection, "SELECT ActionDesc, Engineer, Project, Job FROM ActionTbl");
        query.Execute();
        Lines lines;
        while (query.Next()) {
            lines.emplace_back(query.Text(0));
            for (std::size_t column : {1, 2, 3}) lines.back().append("|").append(query.Text(column));
        }
        return lines;
    }

    test::TempFolder home;
    test::TestUi ui;
    config::SharedSettings settings;
    config::RunOptions asked;
    Lines selections;
};

TEST_F(MainTest, MissingFoldersEndTheRun) {
    WriteIni("[GENERAL]\nSymbolsDirectory=/sym\n");
    EXPECT_EQ(Run("IMPORT /p/a.SHP -QUIET"), 2);
    EXPECT_EQ(ui.messages, Lines{"No ATPfolder"});
    WriteIni("[GENERAL]\nATPDirectory=/atp\n");
    EXPECT_EQ(Run("SELECT"), 2);
    EXPECT_EQ(ui.messages, Lines{"No SYMfolder"});
    EXPECT_TRUE(stub.calls.empty());
    EXPECT_TRUE(selections.empty());
}

TEST_F(MainTest, SelectionWindowGetsTheTextAsReceived) {
    for (std::string text : {"", "GO", "SELECT", "-QUIET", "\"", "\"\"", "-QUIET ?BOX 1,2,3,4 ?"}) {
        selections.clear();
        EXPECT_EQ(Run(text), 0) << text;
        EXPECT_EQ(selections, Lines{text});
    }
    EXPECT_TRUE(stub.calls.empty());
}

TEST_F(MainTest, GoOptionsAreKeptInTheSettings) {
    EXPECT_EQ(Run("GO runmin=1,chkAll=1,TXTMobileStyle=m.bsf,ARC10=5,txtSource=a=b"), 0);
    EXPECT_TRUE(asked.minimised);
    std::string ini = home / "gv.ini";
    EXPECT_EQ(config::ReadIniFile(ini, "OPTION", "chkAll"), "1");
    EXPECT_EQ(config::ReadIniFile(ini, "OPTION", "txtSource"), "a");
    EXPECT_EQ(config::ReadIniFile(ini, "OPTION", "runmin"), "");
    EXPECT_EQ(config::ReadIniFile(ini, "MOBILESTYLING", "FILE"), "m.bsf");
    EXPECT_EQ(config::ReadIniFile(ini, "ESRI", "ARC10"), "5");
    EXPECT_EQ(Run("GO runmin=2"), 0);
    EXPECT_FALSE(asked.minimised);
}

TEST_F(MainTest, SettingsOfARun) {
    SetIni("GENERAL", "AutoLaunchExport", "1");
    SetIni("GENERAL", "VEXLATORDEBUG", "yes");
    SetIni("GENERICOUT", "SHORTENFIELDSON", "/");
    stub.act = [this](config::Run& run) {
        settings = run.Settings();
        asked = run.Options();
        return OneFeature();
    };
    std::string source = home.Write("a.SHP -quiet.SHP", "");
    EXPECT_EQ(Run("IMPORT " + source + " ?BOX 1,2,3,4 ?"), 0);
    EXPECT_EQ(stub.calls, Lines{"1 " + source + " " + home.Path() + " "});
    EXPECT_EQ(settings.ConfigFolder, home.Path());
    EXPECT_TRUE(settings.AutoLaunchExport && asked.quiet);
    EXPECT_FALSE(settings.DebugMode || settings.CreateZip) << "only 1 switches on";
    EXPECT_EQ(settings.SHORTENFIELDSON, "/");
    EXPECT_EQ(asked.extent.minX + asked.extent.maxY, 5);
    EXPECT_TRUE(fs::is_directory(home / "temp"));
}

TEST_F(MainTest, SwitchesInFrontOfACommand) {
    SetIni("GENERAL", "VEXLATORDEBUG", "1");
    EXPECT_EQ(Run("-QUIET IMPORT /p/a.SHP|/p/b.SHP"), 0);
    EXPECT_EQ(stub.calls, Lines{"1 /p/a.SHP /p |/p/b.SHP"});
    EXPECT_EQ(ui.messages, (Lines{"ATP:/atp", "-QUIET IMPORT /p/a.SHP|/p/b.SHP"}));
}

TEST_F(MainTest, TextFilesAreTablesOrMeterReadings) {
    EXPECT_EQ(Run("IMPORT /p/x.txt"), 0);
    SetIni("THIRD", "CAW", "1");
    EXPECT_EQ(Run("IMPORT /p/x.txt"), 0);
    EXPECT_EQ(stub.calls, (Lines{"2 /p/x.txt /p ", "3 /p/x.txt /p "}));
}

TEST_F(MainTest, AShortJobStandsForTheAdtFileBesideIt) {
    struct Case {
        std::size_t jobSize;
        std::string adt, called;
    };
    for (const Case& c : {Case{63, "adt", "5 a.ADT"}, {64, "adt", "4 a.JOB"}, {40, "", "4 a.JOB"}}) {
        home.Write("a.JOB", std::string(c.jobSize, 'x'));
        home.Write("a.ADT", c.adt);
        EXPECT_EQ(Run("IMPORT " + (home / "a.JOB")), 0);
        EXPECT_EQ(stub.calls.back(),
                  util::ReplaceAll(c.called, " ", " " + home.Path() + "/") + " " + home.Path() + " ");
    }
}

TEST_F(MainTest, NothingToDoIsOnePlainLine) {
    std::string p = home / "p";
    const std::pair<std::string, std::string> cases[] = {
        {"IMPORT /p/a.GML", "vexlator: GML import is not available yet"},
        {"IMPORT", "vexlator: IMPORT needs a file"},
        {"\"IMPORT /p/a.SHP\" ", "vexlator: a double quote is left over"},  // a blank saves the last one
        {p + ".DWG", "vexlator: DWG export is not available yet"},
        {p, "vexlator: \"" + p + "\" names no format"},
    };
    for (const auto& [command, line] : cases) {
        EXPECT_EQ(Run(command), 3) << command;
        ASSERT_EQ(ui.reports.size(), 1u);
        EXPECT_TRUE(ui.reports[0].starts_with(line)) << ui.reports[0];
        EXPECT_TRUE(ui.messages.empty());
    }
}

TEST_F(MainTest, StepsAfterAnExportFollowAnUnknownCodeToo) {
    std::string list = home.Write("a/MissingPhotos.LST", "old");
    EXPECT_EQ(Run(home / "a.XYZ"), 3);
    EXPECT_FALSE(fs::exists(list));
    EXPECT_EQ(Run(home / "b.XYZ"), 3);
    EXPECT_TRUE(fs::is_directory(home / "b"));
}

/// The results of an FMO export lie in FMODirectory, and so does what follows it.
TEST_F(MainTest, WhatFollowsAnFmoExportLiesWithIt) {
    stub.act = [](config::Run& run) {
        run.MissingPhotos() = "A.JPG missing from 7\r\n";
        return OneFeature();
    };
    fs::create_directory(home / "fmo");
    EXPECT_EQ(Run(home / "a.FMO"), 0);
    EXPECT_EQ(stub.calls.back(), "FMO " + (home / "a.VDF") + " " + (home / "fmo"));
    EXPECT_EQ(test::TempFolder::Read(home / "fmo/MissingPhotos.LST"), "A.JPG missing from 7\r\n\r\n");
}

TEST_F(MainTest, AnFmoExportOfAJobClosesIt) {
    UseWorkflow();
    stub.act = [](config::Run& run) {
        run.Job().relative = "Ann\\Roads\\North\\a.JOB";
        return OneFeature();
    };
    EXPECT_EQ(Run(home / "b.FMO"), 0);
    EXPECT_EQ(Actions(), (Lines{"Exported to FMO|Ann|Roads|b", "CLOSED|Ann|Roads|b"}));
}

TEST_F(MainTest, ExportsThatDoNotEndLeaveNoTrace) {
    UseWorkflow();
    struct Case {
        std::function<Outcome(config::Run&)> act;
        int status;
        Lines messages;
    };
    auto ends = [](Outcome::Status status) {
        return [=](config::Run&) {
            Outcome outcome;
            outcome.status = status;
            return outcome;
        };
    };
    for (const Case& c : std::vector<Case>{
             {ends(Outcome::Status::StoppedByUser), 4, {}},
             {ends(Outcome::Status::Failed), 1, {}},
             {[](config::Run&) -> Outcome { throw platform::ReadError("a.VDF", "byte 7", "cut"); },
              1,
              {"a.VDF: byte 7: cut"}},
             {[](config::Run&) -> Outcome { throw std::bad_alloc(); }, 1, {"Not enough memory"}},
         }) {
        stub.act = [&](config::Run& run) {
            run.Job().relative = "Ann\\Roads\\a.JOB";
            run.MissingPhotos() = "A.JPG";
            return c.act(run);
        };
        std::string list = home.Write("old/MissingPhotos.LST", "old");
        EXPECT_EQ(Run(home / "old.SHP"), c.status);
        EXPECT_EQ(ui.messages, c.messages);
        EXPECT_TRUE(ui.reports.empty());
        EXPECT_EQ(test::TempFolder::Read(list), "old");
        EXPECT_EQ(Run(home / "new.SHP"), c.status);
        EXPECT_FALSE(fs::exists(home / "new"));
        EXPECT_EQ(Actions(), Lines{});
    }
}

TEST_F(MainTest, ErrorsGoToTheRunLogToo) {
    SetIni("GENERICIN", "INOUTLOG", home / "run.log");
    stub.act = [](config::Run&) -> Outcome { throw platform::WriteError("/p/a.VDF", "no space left"); };
    EXPECT_EQ(Run("IMPORT /p/a.SHP -QUIET"), 1);
    EXPECT_NE(test::TempFolder::Read(home / "run.log").find("/p/a.VDF: no space left"), std::string::npos);
}

}  // namespace
}  // namespace vexlator::startup
