// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Main.h"

#include "Commands.h"
#include "Commit.h"
#include "Options.h"
#include "batch/Batch.h"
#include "batch/CommandPaths.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/Signals.h"
#include "platform/Terminal.h"
#include "startup/Check.h"
#include "startup/CommandLine.h"
#include "startup/Keys.h"
#include "startup/MakeInstallation.h"
#include "startup/MakeMosaic.h"
#include "startup/go/GoFlow.h"
#include "ui/terminal/TerminalInterface.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The terminal program: its own options, then one command text.
namespace vexlator {
namespace {

using startup::ExitStatus;

constexpr std::string_view commandHelp =
    R"(vexlator: turns field drawings into GIS formats, and GIS formats into drawings

  vexlator "IMPORT P/A.SHP"          makes the drawing P/A.VDF of a file
  vexlator "IMPORT P/A.SHP|P/B.SHP"  makes one drawing, P/A.VDF, of several files
  vexlator "IMPORT P/*.SHP"          makes one drawing of all matching files
  vexlator "P/A.KML"                 exports the drawing P/A.VDF to the folder P/A
  vexlator [SELECT | "GO OPTIONS"]   opens the selection window; GO begins at once

The extension names the format.

)";
constexpr std::string_view optionHelp = R"(
With a command:
  -QUIET                       asks no questions that would hold up an unattended run
  ?BOX MINX,MINY,MAXX,MAXY ?   limits imports of databases to an extent
  --yes                        answers every question with Yes
  --strict                     exit status 5 if the output has losses
  --json                       prints the results as one JSON object
  --to FOLDER                  puts the results there, not beside the source
  --set SECTION.KEY=VALUE      a value of gv.ini for this run; may be repeated

Instead of a command (--help, --version too):
  --init FOLDER                makes an installation; never overwrites a file
  --batch LIST                 runs a list or a folder; see --batch --help
  --mosaic FOLDER              one map of the packages in its sub-folders
  --check                      reports the configuration and its faults
  --settings                   prints every key of gv.ini with its meaning

VEXLATOR_HOME=FOLDER in the environment names the installation; without it, gv.ini
beside the program does, else the last --init. Exit status: 0 done; 1 failed;
2 installation or option not usable; 3 nothing to do; 4 stopped by an answer;
5 done, with losses, under --strict; 130, 143 stopped by INT, TERM.
)";

std::string HelpText() {
    return std::string(commandHelp) + startup::AllConversions().Table() + std::string(optionHelp);
}

ExitStatus Print(const std::string& text) {
    bool printed = std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    return printed ? ExitStatus::Done : ExitStatus::Failed;
}

bool HasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"})
        if (const char* display = std::getenv(name); display && *display) return true;
    return false;
}

/// The desktop program beside this one shows the window, and takes this process over. A GO command runs here
/// without it, without a display, and with options that are for runs without anybody watching.
ExitStatus OpenDesktop(config::Run& run, std::string_view received, const Options& options) {
    bool isWatched =
        !options.yesToAll && !options.strict && options.folder.empty() && options.settings.empty();
    std::vector<std::string> arguments;
    if (!received.empty()) arguments.emplace_back(received);
    if (run.Options().quiet) arguments.emplace_back("-QUIET");
    if (HasDisplay() && (isWatched || !startup::IsGo(received)))
        platform::ReplaceProcess(platform::ExecutableFolder() + "/vexlator-desktop", std::move(arguments));
    if (startup::IsGo(received)) return startup::PerformGo(run, received);
    run.Ui().Report(std::string("vexlator: the selection window needs ") +
                    (HasDisplay() ? "vexlator-desktop in the folder of this program" : "a display") +
                    "; vexlator --help lists what works without it");
    return ExitStatus::NothingToDo;
}

ExitStatus PerformBatch(const Options& options, ui::UserInterface& terminal) {
    batch::Options night = batch::ParseOptions(options.batchArguments);
    if (night.help) return Print(std::string(batch::helpText));
    if (!options.settings.empty() || !options.folder.empty())
        night.error = "--set and --to stand behind the commands of a batch, each for itself";
    if (!night.error.empty()) {
        terminal.Report("vexlator: " + night.error + "; see vexlator --batch --help");
        return ExitStatus::NotUsable;
    }
    platform::StopOnSignals();
    return batch::Run(night, [&](const std::string& command) {
        std::vector<std::string> arguments = batch::ArgumentsOf(command);
        std::vector<const char*> pointers;
        for (const std::string& argument : arguments) pointers.push_back(argument.c_str());
        Options asked = ParseOptions(pointers);
        asked.yesToAll |= options.yesToAll || night.yesToAll;
        asked.strict |= options.strict || night.strict;
        return PerformInBatch(asked);
    });
}

ExitStatus Perform(const Options& options) {
    ui::TerminalInterface terminal(
        stdin, stderr, {.yesToAll = options.yesToAll, .isTerminal = platform::IsTerminal(stderr)});
    if (!options.error.empty()) {
        terminal.Report("vexlator: " + options.error + "; see vexlator --help");
        return ExitStatus::NotUsable;
    }
    switch (options.task) {
        case Options::Task::Help:
            return Print(HelpText());
        case Options::Task::Version:
            return Print("vexlator " VEXLATOR_VERSION ", commit " + std::string(commit) +
                         "\ncompiled by " VEXLATOR_COMPILER "\nwith " VEXLATOR_LIBRARIES "\n");
        case Options::Task::Init:
            return startup::MakeInstallation(options.folder, terminal);
        case Options::Task::Settings:
            return Print(startup::SettingsPage());
        case Options::Task::Check:
            return startup::CheckInstallation(terminal);
        case Options::Task::Batch:
            return PerformBatch(options, terminal);
        case Options::Task::Mosaic:
            return startup::MakeMosaic(options.folder, terminal);
        case Options::Task::Run:
            break;
    }
    platform::StopOnSignals();
    if (options.json) return PerformAsJson(options);
    auto openDesktop = [&](config::Run& run, std::string_view received) {
        return OpenDesktop(run, received, options);
    };
    return PerformCommand(options, terminal, openDesktop).status;
}

}  // namespace
}  // namespace vexlator

int main(int argc, char** argv) {
    using namespace vexlator;
    platform::HandleFileSignals();
    std::span<const char* const> arguments(argv, static_cast<std::size_t>(argc));
    ExitStatus status = Perform(ParseOptions(arguments.subspan(argc > 0 ? 1 : 0)));
    if (status == ExitStatus::Interrupted) platform::EndBySignal();
    return static_cast<int>(status);
}
