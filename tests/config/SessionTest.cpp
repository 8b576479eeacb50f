// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/FormState.h"
#include "config/LocateConfigFile.h"
#include "config/Session.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"

#include <gtest/gtest.h>

namespace vexlator::config {
namespace {

using test::TempFolder;

/// A session whose gv.ini is in a folder of its own.
struct SessionTest : testing::Test {
    SessionTest() { session.Settings().IniFilePath = folder / "gv.ini"; }
    TempFolder folder;
    test::TestUi ui;
    Session session{ui, [] { return platform::DateTime{2024, 3, 5, 14, 7, 0}; }};
};

TEST(LocateConfigFile, PointerFileOrProgramFolder) {
    TempFolder folder;
    ::setenv("USER", "jsmith", 1);
    EXPECT_EQ(LocateConfigFile(folder.Path(), "gv.ini"), folder.Path() + "\\gv.ini");
    folder.Write("application.ini", "[CONFIG]\nAPPINI=C:\\Cfg\\%USERNAME%\\%username%.ini\n");
    EXPECT_EQ(LocateConfigFile(folder.Path(), "gv.ini"), "C:\\Cfg\\jsmith\\jsmith.ini");
}

TEST_F(SessionTest, LogAndDebugMessagesOnlyWhenAskedFor) {
    session.Log("not kept");
    session.DebugMessage("not shown");
    session.Settings().InOutLog = folder / "run.log";
    session.Settings().DebugMode = true;
    session.Log("Imported\r\n2 features");
    session.DebugMessage("shown");
    EXPECT_EQ(TempFolder::Read(folder / "run.log"), "05MAR 14:07: Imported  2 features\r\n");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"shown"});
    session.Settings().InOutLog = folder / "missing/run.log";
    EXPECT_NO_THROW(session.Log("nowhere"));
}

TEST(LossReport, OneLine) {
    LossReport losses;
    EXPECT_EQ(losses.Line(), "");
    losses.Count(LossReport::Kind::Replaced, "WALL", "NAME", 2);
    EXPECT_EQ(losses.Line(), "characters replaced: WALL.NAME 2");
    losses.Count(LossReport::Kind::Cut, "FENCE", "NOTES");
    losses.Count(LossReport::Kind::Cut, "FENCE", "NOTES", 2);
    losses.Count(LossReport::Kind::Cut, "WALL", "NAME", 0);
    EXPECT_EQ(losses.Line(), "values cut: FENCE.NOTES 3; characters replaced: WALL.NAME 2");
    for (int i = 10; i < 35; ++i) losses.Count(LossReport::Kind::Cut, "L", std::to_string(i));
    EXPECT_NE(losses.Line().find("L.28 1 and 6 more fields; characters"), std::string::npos) << losses.Line();
}

TEST_F(SessionTest, FormStateComesBack) {
    const std::vector<FormControl> saved = {
        {.name = "chkAll", .number = 2},
        {.name = "txtPath", .text = " C:\\a "},
        {.name = "cboFormat", .number = -1, .listSize = 3},
        {.name = "optShape", .selected = true},
        {.name = "gtxtGRP_GRIDSIZE", .text = "500"},
        {.name = "lblNothing", .text = "kept"},
    };
    SaveFormState(session, saved);
    EXPECT_EQ(session.ReadIni("GRP", "GRIDSIZE"), "500");
    EXPECT_EQ(session.ReadIni("OPTION", "cboFormat"), "-1");
    std::vector<FormControl> restored = saved;
    for (FormControl& control : restored) {
        control.number = 1;
        control.selected = false;
        control.text = "x";
    }
    RestoreFormState(session, restored);
    EXPECT_EQ(restored[0].number, 2);
    EXPECT_EQ(restored[1].text, " C:\\a ");
    EXPECT_EQ(restored[2].number, -1);
    EXPECT_TRUE(restored[3].selected);
    EXPECT_EQ(restored[4].text, "500");
    EXPECT_EQ(restored[5].text, "x");
}

TEST_F(SessionTest, FormStateThatIsMissingOrRefused) {
    folder.Write("gv.ini", "[OPTION]\ncboLong=3\nchkBad=7\noptBad=true\n");
    std::vector<FormControl> controls = {
        {.name = "cboLong", .number = 1, .listSize = 3},
        {.name = "chkBad", .number = 1},
        {.name = "optBad", .selected = true},
        {.name = "cboNew", .number = 1, .listSize = 3},
        {.name = "chkNew", .number = 1},
        {.name = "txtNew", .text = "x"},
        {.name = "gtxtNOKEY", .text = "x"},
    };
    RestoreFormState(session, controls);
    EXPECT_EQ(controls[0].number, 1) << "no such entry";
    EXPECT_EQ(controls[1].number, 1) << "no such state";
    EXPECT_FALSE(controls[2].selected) << "only the exact text True selects";
    EXPECT_EQ(controls[3].number, 0);
    EXPECT_EQ(controls[4].number, 0);
    EXPECT_EQ(controls[5].text, "");
}

}  // namespace
}  // namespace vexlator::config
