// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
// EsriBackdropBuilder: makes drawings of what a map shows, for background packages.
#include "corporate/store/BackdropDrawings.h"
#include "corporate/store/HandoffCommand.h"
#include "corporate/store/ImportFromStore.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"
#include "raster/Gdal.h"
#include "startup/RecordedRun.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/WholeNumber.h"

#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace vexlator;
using corporate::WrongUse;

constexpr int done = 0, failed = 1, wrongUse = 2;

constexpr std::string_view usage =
    "usage: EsriBackdropBuilder MXD SOURCE VDF DRAWING [MODE ESRI|CADCORP]\n"
    "       EsriBackdropBuilder MXD SOURCE GRP PACKAGE [GRID INTERVAL] [MAXENTITIES N] [MODE ESRI|CADCORP]\n"
    "       EsriBackdropBuilder --help | --version\n";
constexpr std::string_view help =
    "\n"
    "Makes a drawing of a source that GDAL reads, or drawings beside PACKAGE for its tiles. A map document, "
    "layer file\n"
    "or workspace is a closed format: give the geodatabase or database that it shows, or a workspace file "
    "(.SWD) of\n"
    "text with that in its first line. A file .LOG with the target's name tells of the end.\n"
    "Exit status: 0 done; 1 failed; 2 wrong use.\n";

struct Command {
    std::string source, drawing, package;
    corporate::BackdropGrid grid;
};

double NumberOf(const std::string& word, const std::string& value) {
    std::optional<double> number = util::WholeNumberOf(value);
    if (!number || *number <= 0) throw WrongUse(word + " " + value + ": not a number above 0");
    return *number;
}

Command Parse(const std::vector<std::string>& words) {
    Command command;
    for (std::size_t i = 0; i < words.size(); i += 2) {
        if (i + 1 == words.size()) throw WrongUse(words[i] + ": has no value behind it");
        const std::string word = platform::UpperAscii(words[i]);
        const std::string& value = words[i + 1];
        if (word == "MXD")
            command.source = value;
        else if (word == "VDF")
            command.drawing = platform::AbsolutePath(value);
        else if (word == "GRP")
            command.package = platform::AbsolutePath(value);
        else if (word == "GRID")
            command.grid.interval = NumberOf(word, value);
        else if (word == "MAXENTITIES")
            command.grid.mostEntities = static_cast<std::uint64_t>(NumberOf(word, value));
        else if (word != "MODE")  // the source says itself what it is
            throw WrongUse(words[i] + ": not understood");
    }
    if (command.source.empty() || command.drawing.empty() == command.package.empty())
        throw WrongUse("MXD and one of VDF and GRP are needed");
    return command;
}

int Say(const std::string& text, int status) {
    std::string line = "EsriBackdropBuilder: " + text + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return status;
}

int Perform(const Command& command) {
    const std::string target = command.drawing.empty() ? command.package : command.drawing;
    const std::string log = util::ChangeExtension(target, "LOG");
    platform::RemoveFile(log);
    config::ConversionReport report = startup::RecordedRun(
        [](config::Installation& installation) {
            installation.Override({"GENERICIN", "INOUTLOG", ""});
        },
        [&](config::Run& run, config::ConversionReport& told) {
            raster::StartGdal();
            platform::RequireFolder(util::FolderOf(target));
            if (command.drawing.empty())
                corporate::MakeBackdropDrawings(run, command.source, target, command.grid, told);
            else
                told.outcome = corporate::ImportFromStore(run, command.source, target, told);
        });
    if (!report.error.empty()) return Say(report.error, failed);
    platform::ReplaceFile(log, report.Text());
    return report.outcome.status == config::Outcome::Status::Done ? done : failed;
}

int Run(const std::vector<std::string>& arguments) {
    bool printsHelp = arguments == std::vector<std::string>{"--help"};
    if (printsHelp || arguments == std::vector<std::string>{"--version"}) {
        platform::Print(printsHelp ? std::string(usage).append(help)
                                   : "EsriBackdropBuilder " VEXLATOR_VERSION "\n");
        platform::FinishPrinting();
        return done;
    }
    try {
        return Perform(Parse(arguments));
    } catch (const WrongUse& error) {
        Say(error.what(), wrongUse);
        std::fwrite(usage.data(), 1, usage.size(), stderr);
        return wrongUse;
    } catch (const platform::Stopped&) {
        platform::EndBySignal();
        return failed;
    } catch (const std::exception& error) {
        return Say(error.what(), failed);
    }
}

}  // namespace

int main(int argc, char** argv) {
    platform::HandleFileSignals();
    platform::StopOnSignals();
    platform::RaiseOpenFileLimit();
    try {
        return Run({argv + 1, argv + argc});
    } catch (const platform::OutputError&) {
        return failed;
    }
}
