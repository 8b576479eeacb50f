// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Ini.h"
#include "drawing/Drawing.h"
#include "support/Processes.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace vexlator {
namespace {

namespace fs = std::filesystem;

/// The program itself, as a shell runs it.
class ProgramTest : public testing::Test {
protected:
    test::ShellResult Run(const std::string& arguments) {
        return test::RunShell(folder, "HOME=. VEXLATOR_HOME=inst " VEXLATOR_PROGRAM " " + arguments);
    }
    test::TempFolder folder;
};

TEST_F(ProgramTest, PrintsWhatItIsAskedToPrint) {
    test::ShellResult version = Run("--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.out.starts_with("vexlator ")) << version.out;
    test::ShellResult help = Run("--yes --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("--init FOLDER"), std::string::npos);
    EXPECT_EQ(version.err + help.err, "");
}

TEST_F(ProgramTest, WrongOptionsAreErrors) {
    for (const char* arguments : {"--nonsense", "--yes --nonsense SELECT", "--init", "--init ''"}) {
        test::ShellResult result = Run(arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(result.err.starts_with("vexlator: ")) << result.err;
    }
}

TEST_F(ProgramTest, InitMakesAnInstallationThatWorksAtOnce) {
    test::ShellResult init = Run("--init inst");
    EXPECT_EQ(init.status, 0) << init.err;
    EXPECT_EQ(init.out, "");
    std::string inst = folder / "inst";
    EXPECT_EQ(config::ReadIniFile(inst + "/gv.ini", "GENERAL", "ATPDirectory"), inst + "/ATP");
    EXPECT_GT(fs::file_size(inst + "/WorkFlow/WorkFlow.MDB"), 0u);
    drawing::Drawing symbol;
    symbol.open(inst + "/Symbols/DEFAULT.VDF");
    EXPECT_GT(symbol.entityCount(), 0u);

    test::ShellResult check = Run("--check");
    EXPECT_EQ(check.status, 0) << check.err;
    EXPECT_NE(check.err.find("SQLite"), std::string::npos) << check.err;
    test::ShellResult unknown = Run("IMPORT a.XYZ");
    EXPECT_EQ(unknown.status, 3);
    EXPECT_TRUE(unknown.err.starts_with("vexlator: nothing imports \"XYZ\"; formats are MID "))
        << unknown.err;
    // No desktop program lies beside the one under test.
    for (const char* arguments : {"", "SELECT", "GO chkAll=1"}) EXPECT_EQ(Run(arguments).status, 3);
    EXPECT_EQ(config::ReadIniFile(inst + "/gv.ini", "OPTION", "chkAll"), "1");
}

TEST_F(ProgramTest, InitNeverOverwrites) {
    ASSERT_EQ(Run("--init inst").status, 0);
    folder.Write("inst/gv.ini", "[GENERAL]\n");
    folder.Write("inst/Resources/ESRI.PRJ", "mine");
    fs::remove(folder / "inst/Symbols/DEFAULT.VDF");
    auto database = fs::last_write_time(folder / "inst/WorkFlow/WorkFlow.MDB");
    test::ShellResult again = Run("--init inst/");
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(test::TempFolder::Read(folder / "inst/gv.ini"), "[GENERAL]\n");
    EXPECT_EQ(test::TempFolder::Read(folder / "inst/Resources/ESRI.PRJ"), "mine");
    EXPECT_EQ(fs::last_write_time(folder / "inst/WorkFlow/WorkFlow.MDB"), database);
    EXPECT_TRUE(fs::exists(folder / "inst/Symbols/DEFAULT.VDF"));
    EXPECT_NE(again.err.find("kept " + (folder / "inst/gv.ini")), std::string::npos) << again.err;
    EXPECT_NE(again.err.find("made " + (folder / "inst/Symbols/DEFAULT.VDF")), std::string::npos);
}

TEST_F(ProgramTest, NobodyReadingIsNoCrash) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    ::close(ends[0]);
    std::string brokenPipe = " >&" + std::to_string(ends[1]) + " 2>&1";
    EXPECT_EQ(Run("'IMPORT a.SHP'" + brokenPipe).status, 2);
    EXPECT_EQ(Run("--version" + brokenPipe).status, 1);
    ::close(ends[1]);
    EXPECT_EQ(Run("'IMPORT a.SHP' 2>&-").status, 2);
    EXPECT_EQ(Run("--version >/dev/full").status, 1);
}

}  // namespace
}  // namespace vexlator
