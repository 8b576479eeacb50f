// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Ini.h"
#include "drawing/Drawing.h"
#include "platform/Errors.h"
#include "startup/Main.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"

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

/// The calls of the conversions below, and their effects. Calls are plain functions, so they cannot use an
/// object.
Lines calls;
std::function<Outcome(config::Run&)> act;

Outcome ImportStub(config::Run& run, const ImportCommand& c) {
    calls.push_back(c.sourcePath + " " + c.sourceFolder + " " + c.fileList);
    return act(run);
}
Outcome ExportStub(config::Run& run, const ExportCommand& c) {
    calls.push_back(c.drawingPath + " " + c.targetPath);
    return act(run);
}
constexpr ImportRow imports[] = {{"SHP", "", "frmFromSHP", ImportStub}};
constexpr ExportRow exports[] = {{"SHP", "", "frmSHP", ExportStub}, {"FMO", "", "frmFMO", ExportStub, true}};

class MainTest : public testing::Test {
protected:
    MainTest() {
        calls.clear();
        act = [](config::Run&) { return OneFeature(); };
        ::setenv("VEXLATOR_HOME", home.Path().c_str(), 1);
        ::setenv("VEXLATOR_DRIVES", (home / "drives").c_str(), 1);
        home.Write("gv.ini", "[GENERAL]\nATPDirectory=/atp\nSymbolsDirectory=/sym\nFMODirectory=" +
                                 (home / "fmo") + "\nTempDirectory=" + (home / "temp") + "\n");
    }
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
    test::TempFolder home;
    test::TestUi ui;
    config::SharedSettings settings;
    config::RunOptions asked;
    Lines selections;
};

TEST_F(MainTest, SelectionWindowGetsTheTextAsReceived) {
    for (std::string text : {"", "GO", "SELECT", "-QUIET", "\"", "\"\"", "-QUIET ?BOX 1,2,3,4 ?"}) {
        selections.clear();
        EXPECT_EQ(Run(text), 0) << text;
        EXPECT_EQ(selections, Lines{text});
    }
    EXPECT_TRUE(calls.empty());
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
    act = [this](config::Run& run) {
        settings = run.Settings();
        asked = run.Options();
        return OneFeature();
    };
    std::string source = home.Write("a.SHP -quiet.SHP", "");
    EXPECT_EQ(Run("IMPORT " + source + " ?BOX 1,2,3,4 ?"), 0);
    EXPECT_EQ(calls, Lines{source + " " + home.Path() + " "});
    EXPECT_EQ(settings.ConfigFolder, home.Path());
    EXPECT_TRUE(settings.AutoLaunchExport && asked.quiet);
    EXPECT_FALSE(settings.DebugMode || settings.CreateZip) << "only 1 switches on";
    EXPECT_EQ(settings.SHORTENFIELDSON, "/");
    EXPECT_EQ(asked.extent.minX + asked.extent.maxY, 5);
    EXPECT_TRUE(fs::is_directory(home / "temp"));
}

/// The results of an FMO export are in FMODirectory, with the results of the steps after it.
TEST_F(MainTest, WhatFollowsAnFmoExportLiesWithIt) {
    act = [](config::Run& run) {
        run.MissingPhotos() = "A.JPG missing from 7\r\n";
        return OneFeature();
    };
    fs::create_directory(home / "fmo");
    std::string drawing = home / "a.VDF";
    drawing::Drawing().saveAs(drawing);
    EXPECT_EQ(Run(home / "a.FMO"), 0);
    EXPECT_EQ(calls, Lines{drawing + " " + (home / "fmo")});
    EXPECT_EQ(test::TempFolder::Read(home / "fmo/MissingPhotos.LST"), "A.JPG missing from 7\r\n\r\n");
}

TEST_F(MainTest, ExportsThatDoNotEndLeaveNoTrace) {
    struct Case {
        std::function<Outcome()> end;
        Lines messages;
    };
    const Case cases[] = {
        {[]() -> Outcome { throw platform::ReadError("a.VDF", "byte 7", "cut"); }, {"a.VDF: byte 7: cut"}},
        {[]() -> Outcome { throw std::bad_alloc(); }, {"Not enough memory"}},
    };
    std::string list = home.Write("old/MissingPhotos.LST", "old");
    for (const char* name : {"old.VDF", "new.VDF"}) home.Write(name, "");
    for (const Case& c : cases) {
        act = [&](config::Run& run) {
            run.MissingPhotos() = "A.JPG";
            return c.end();
        };
        for (const char* command : {"old.SHP", "new.SHP"}) {
            EXPECT_EQ(Run(home / command), 1);
            EXPECT_EQ(ui.messages, c.messages);
            EXPECT_TRUE(ui.reports.empty());
        }
        EXPECT_EQ(test::TempFolder::Read(list), "old");
        EXPECT_FALSE(fs::exists(home / "new"));
    }
}

}  // namespace
}  // namespace vexlator::startup
