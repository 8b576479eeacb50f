// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
// CadcorpTasks: the central service that performs the tasks of SWD exports and imports.
#include "corporate/store/TaskService.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using namespace vexlator;

constexpr int done = 0, failed = 1, wrongUse = 2;

constexpr std::string_view usage =
    "usage: CadcorpTasks [--once] FOLDER\n"
    "       CadcorpTasks --help | --version\n";
constexpr std::string_view help =
    "\n"
    "Performs the tasks in FOLDER, the subfolder tasks of WorkFlowSystem: SWD exports and imports that were "
    "posted\n"
    "with [GENERAL] CommitCentrally=1. It waits for more until it is stopped; with --once it ends when none "
    "is left.\n"
    "DrawingToCadcorp stands beside it. Several services can share the folder.\n"
    "Exit status: 0 done or stopped; 1 the folder or the program is missing; 2 wrong use.\n";

int Complain(const std::string& reason, int status) {
    std::string line = "CadcorpTasks: " + reason + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return status;
}

void Tell(const std::string& line) {
    std::fwrite((line + "\n").data(), 1, line.size() + 1, stderr);
}

int Serve(const std::string& folder, bool once) {
    constexpr std::chrono::milliseconds pause(200);
    const std::string program = platform::ExecutableFolder() + "/DrawingToCadcorp";
    if (!platform::FileExists(program)) return Complain(program + ": not installed", failed);
    if (!platform::FolderExists(folder)) return Complain(folder + ": no such folder", failed);
    corporate::TaskService service(folder, program);
    try {
        while (service.PerformAll(Tell) > 0 || !once) {
            platform::ThrowIfStopped();
            std::this_thread::sleep_for(pause);
        }
    } catch (const platform::Stopped&) {
        return done;
    }
    return done;
}

int Run(std::vector<std::string> arguments) {
    bool printsHelp = arguments == std::vector<std::string>{"--help"};
    if (printsHelp || arguments == std::vector<std::string>{"--version"}) {
        platform::Print(printsHelp ? std::string(usage).append(help) : "CadcorpTasks " VEXLATOR_VERSION "\n");
        platform::FinishPrinting();
        return done;
    }
    bool once = std::erase(arguments, "--once") > 0;
    if (arguments.size() == 1 && !arguments.front().starts_with("--"))
        return Serve(platform::AbsolutePath(arguments.front()), once);
    std::fwrite(usage.data(), 1, usage.size(), stderr);
    return wrongUse;
}

}  // namespace

int main(int argc, char** argv) {
    platform::HandleFileSignals();
    platform::StopOnSignals();
    try {
        return Run({argv + 1, argv + argc});
    } catch (const platform::OutputError&) {
        return failed;
    } catch (const std::exception& error) {
        return Complain(error.what(), failed);
    }
}
