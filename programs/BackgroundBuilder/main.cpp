// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// BackgroundBuilder: national topography and images become background packages.
#include "BackgroundBuilder/Command.h"
#include "BackgroundBuilder/Images.h"
#include "BackgroundBuilder/Topography.h"
#include "BackgroundBuilder/TransferFormat.h"
#include "config/Installation.h"
#include "config/Run.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"
#include "platform/Terminal.h"
#include "startup/Settings.h"
#include "ui/terminal/TerminalInterface.h"
#include "util/Paths.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::backgroundbuilder {

namespace {

constexpr int done = 0, failed = 1, wrongUse = 2;

constexpr std::string_view usage =
    "usage: BackgroundBuilder SOURCE FILE TARGET FOLDER/NAME.GRP [ALL 0|1]\n"
    "       BackgroundBuilder --help | --version\n";

constexpr std::string_view help =
    "\n"
    "Makes one background package of FILE, or with ALL 1 of all files in its folder that have its "
    "extension:\n"
    "  GML, GZ             topography, drawn by its classes\n"
    "  JPG, BMP, ECW ...   images with world files: tiles of an image package\n"
    "  NTF                 maps in the National Transfer Format\n"
    "\n"
    "Section SELECT of BackgroundBuilder.ini beside gv.ini: COU=1 when the files hold change-only updates, "
    "mmMDB=1\n"
    "to keep the features for them, in MMBACKUP/NAME.sqlite with copies of the files beside it.\n"
    "Exit status: 0 done; 1 failed, and the package is as it was; 2 wrong use.\n";

int Complain(const std::string& reason, int status) {
    std::string line = "BackgroundBuilder: " + reason + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return status;
}

struct Kind {
    std::string_view extension;
    void (*build)(config::Run& run, const Command& command);
};

constexpr Kind kinds[] = {{"GML", BuildTopography}, {"GZ", BuildTopography}, {"NTF", BuildTransferFormat},
                          {"JPG", BuildImages},     {"JPEG", BuildImages},   {"BMP", BuildImages},
                          {"ECW", BuildImages},     {"PNG", BuildImages},    {"TIF", BuildImages},
                          {"TIFF", BuildImages}};

/// Ends what a run that was killed there had begun.
void PrepareFolder(config::Run& run, const std::string& folder) {
    platform::RequireFolder(folder);
    std::string problem = platform::RemoveLeftovers(folder);
    if (!problem.empty()) run.Ui().Report(problem);
}

void Build(config::Run& run, const Command& command) {
    std::string extension = util::ExtensionOf(command.source);
    auto kind = std::ranges::find_if(
        kinds, [&](const Kind& known) { return platform::SameNoCase(extension, known.extension); });
    if (kind == std::end(kinds))
        throw platform::ReadError(platform::NativePath(command.source), "",
                                  "no kind of file that becomes a background");
    PrepareFolder(run, util::FolderOf(platform::AbsolutePath(command.target)));
    kind->build(run, command);
}

int Perform(const Command& command) {
    ui::TerminalInterface terminal(stdin, stderr,
                                   {.yesToAll = false, .isTerminal = platform::IsTerminal(stderr)});
    config::Installation installation;
    try {
        startup::LocateSettings(installation);
        startup::ReadSettings(installation);
        config::Run run(installation, terminal);
        run.Options().quiet = true;
        Build(run, command);
        return done;
    } catch (const platform::Stopped&) {
        Complain("stopped", failed);
        platform::EndBySignal();
        return failed;
    } catch (const std::bad_alloc&) {
        return Complain(platform::NativePath(command.source) + ": there is not enough memory for it", failed);
    }
}

int Run(const std::vector<std::string>& arguments) {
    bool printsHelp = arguments == std::vector<std::string>{"--help"};
    if (printsHelp || arguments == std::vector<std::string>{"--version"}) {
        platform::Print(printsHelp ? std::string(usage).append(help)
                                   : "BackgroundBuilder " VEXLATOR_VERSION "\n");
        platform::FinishPrinting();
        return done;
    }
    try {
        return Perform(ParseCommand(arguments));
    } catch (const WrongUse& error) {
        Complain(error.what(), wrongUse);
        std::fwrite(usage.data(), 1, usage.size(), stderr);
        return wrongUse;
    } catch (const std::exception& error) {
        return Complain(error.what(), failed);
    }
}

}  // namespace

}  // namespace vexlator::backgroundbuilder

int main(int argc, char** argv) {
    vexlator::platform::HandleFileSignals();
    vexlator::platform::StopOnSignals();
    try {
        return vexlator::backgroundbuilder::Run({argv + 1, argv + argc});
    } catch (const vexlator::platform::OutputError&) {
        return 1;
    }
}
