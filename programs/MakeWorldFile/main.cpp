// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// MakeWorldFile: georeferences an image by control points, rotates it north-up and cuts it into tiles.
#include "MakeWorldFile/CommandLine.h"
#include "MakeWorldFile/Job.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"
#include "raster/Gdal.h"
#include "util/Paths.h"

#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::makeworldfile {

namespace {

constexpr int done = 0, failed = 1, wrongUse = 2;

constexpr std::string_view usage =
    "usage: MakeWorldFile GEOREF IMAGE.INI Source IMAGE target FOLDER [CARVE PIXELS] [debugfile FILE]\n"
    "       MakeWorldFile source IMAGE target FOLDER [FileList IMAGE*IMAGE...] CARVE PIXELS\n"
    "       MakeWorldFile --help | --version\n";

constexpr std::string_view help =
    "\n"
    "Fits the control points of IMAGE.INI (its section GEOREF), and rotates the image north-up if ROTATE=1 "
    "is set.\n"
    "Without points the position comes from the image's world file, or from the image itself. FOLDER gets "
    "bkg.jpg\n"
    "with its world file, or tiles IMAGE_RRR_CCC.jpg with theirs. Images of a list are overlaid. Log.txt in "
    "FOLDER\n"
    "is written last: its first line is OK, or why nothing was written; then the fit and its residuals, "
    "worst "
    "first.\n"
    "Exit status: 0 done; 1 failed, and only Log.txt in FOLDER has changed; 2 wrong use.\n";

int Complain(const std::string& reason, int status) {
    std::string line = "MakeWorldFile: " + reason + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return status;
}

/// The line that callers read, and the lines after it. The file tells them that the run is complete.
void WriteLog(const Command& command, const std::string& text) {
    platform::ReplaceFile(util::JoinPath(command.target, "Log.txt"), text);
    if (command.debugFile.empty()) return;
    try {
        platform::AppendToFile(command.debugFile, platform::NativePath(command.source) + ": " + text);
    } catch (const platform::WriteError&) {
        // Callers do not need it.
    }
}

int Fail(const Command& command, const std::string& reason) {
    try {
        WriteLog(command, reason + "\r\n");
    } catch (const platform::WriteError& error) {
        Complain(error.what(), failed);
    }
    return Complain(reason, failed);
}

int Perform(const Command& command) {
    try {
        platform::RequireFolder(command.target);
        platform::RemoveLeftovers(command.target);
        platform::RemoveFile(util::JoinPath(command.target, "Log.txt"));  // of an earlier run
        raster::StartGdal();
        WriteLog(command, "OK\r\n" + RunJob(command));
        return done;
    } catch (const platform::Stopped&) {
        Fail(command, "stopped");
        platform::EndBySignal();
        return failed;
    } catch (const std::bad_alloc&) {
        return Fail(command, platform::NativePath(command.source) + ": there is not enough memory for it");
    } catch (const std::exception& error) {
        return Fail(command, error.what());
    }
}

int Run(const std::vector<std::string>& arguments) {
    bool printsHelp = arguments == std::vector<std::string>{"--help"};
    if (printsHelp || arguments == std::vector<std::string>{"--version"}) {
        platform::Print(printsHelp ? std::string(usage).append(help)
                                   : "MakeWorldFile " VEXLATOR_VERSION "\n");
        platform::FinishPrinting();
        return done;
    }
    try {
        return Perform(ParseCommand(arguments));
    } catch (const WrongUse& error) {
        Complain(error.what(), wrongUse);
        std::fwrite(usage.data(), 1, usage.size(), stderr);
        return wrongUse;
    }
}

}  // namespace

}  // namespace vexlator::makeworldfile

int main(int argc, char** argv) {
    vexlator::platform::HandleFileSignals();
    vexlator::platform::StopOnSignals();
    try {
        return vexlator::makeworldfile::Run({argv + 1, argv + argc});
    } catch (const vexlator::platform::OutputError&) {
        return 1;
    }
}
