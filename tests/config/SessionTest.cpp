// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/FormState.h"
#include "config/LocateConfigFile.h"
#include "support/Installation.h"

namespace vexlator::config {
namespace {

using test::TempFolder;

using SessionTest = test::InstallationTest;

TEST(LocateConfigFile, PointerFileOrProgramFolder) {
    TempFolder folder;
    ::setenv("USER", "jsmith", 1);
    EXPECT_EQ(LocateConfigFile(folder.Path(), "gv.ini"), folder.Path() + "\\gv.ini");
    folder.Write("application.ini", "[CONFIG]\nAPPINI=C:\\Cfg\\%USERNAME%\\%username%.ini\n");
    EXPECT_EQ(LocateConfigFile(folder.Path(), "gv.ini"), "C:\\Cfg\\jsmith\\jsmith.ini");
}

TEST_F(SessionTest, LogAndDebugMessagesOnlyWhenAskedFor) {
    run.Log("not kept");
    run.DebugMessage("not shown");
    installation.Settings().InOutLog = folder / "run.log";
    installation.Settings().DebugMode = true;
    run.Log("Imported\r\n2 features");
    run.DebugMessage("shown");
    run.Ui().AskYesNo("More?");
    EXPECT_EQ(TempFolder::Read(folder / "run.log"),
              "05MAR 14:07: Imported  2 features\r\n05MAR 14:07: shown\r\n05MAR 14:07: More? [No]\r\n");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"shown"});
    installation.Settings().InOutLog = folder / "missing/run.log";
    EXPECT_NO_THROW(run.Log("nowhere"));
}

TEST(LossReport, OneLine) {
    LossReport losses;
    EXPECT_EQ(losses.Line(), "");
    losses.Count(LossReport::Kind::Replaced, "WALL", "NAME", 2);
    for (std::uint64_t values : {1, 0, 2}) losses.Count(LossReport::Kind::Cut, "FENCE", "NOTES", values);
    EXPECT_EQ(losses.Line(), "values cut: FENCE.NOTES 3; characters replaced: WALL.NAME 2");
    for (int i = 10; i < 35; ++i)
        losses.Count(LossReport::Kind::Cut, std::to_string(i) + std::string(90, 'x'), "");
    EXPECT_NE(losses.Line().find("xx... 1 and 6 more; characters"), std::string::npos) << losses.Line();
    EXPECT_LT(losses.Line().size(), 1600U);
}

/// The state of a form's control if the settings contain a line `ini`.
struct FormCase {
    std::string ini;
    FormControl control;
    std::string restored;
};

TEST_F(SessionTest, FormStateComesBackUnlessItIsMissingOrRefused) {
    const FormControl list{.name = "cboFormat", .number = 1, .listSize = 3},
        check{.name = "chkAll", .number = 1}, option{.name = "optShape", .selected = true},
        text{.name = "txtPath", .text = "x"};
    const FormCase cases[] = {
        {"cboFormat=-1", list, "-1"},
        {"cboFormat=3", list, "1"},
        {"", list, "0"},
        {"chkAll=2", check, "2"},
        {"chkAll=7", check, "1"},
        {"", check, "0"},
        {"optShape=True", option, "selected"},
        {"optShape=true", option, ""},
        {"txtPath=\" C:\\a \"", text, " C:\\a "},
        {"", text, ""},
    };
    for (const FormCase& c : cases) {
        folder.Write("gv.ini", "[OPTION]\n" + c.ini + "\n");
        std::vector<FormControl> controls{c.control};
        RestoreFormState(run, controls);
        const FormControl& found = controls[0];
        bool isNumber = c.control.name == list.name || c.control.name == check.name;
        EXPECT_EQ(found.selected ? "selected"
                  : isNumber     ? std::to_string(found.number)
                                 : found.text,
                  c.restored)
            << c.control.name << ": " << c.ini;
    }
}

TEST_F(SessionTest, FormStateIsSavedUnderItsNames) {
    SaveFormState(run, std::vector<FormControl>{{.name = "chkAll", .number = 2},
                                                {.name = "optShape", .selected = true},
                                                {.name = "gtxtGRP_GRIDSIZE", .text = "500"},
                                                {.name = "lblNothing", .text = "not kept"}});
    EXPECT_EQ(TempFolder::Read(folder / "gv.ini"),
              "[OPTION]\r\nchkAll=2\r\noptShape=True\r\n[GRP]\r\nGRIDSIZE=500\r\n");
}

}  // namespace
}  // namespace vexlator::config
