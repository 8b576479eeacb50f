// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// vdconv: converts between drawings and the files of CAD programs and geographic information systems.
#include "config/Installation.h"
#include "config/Run.h"
#include "import/FeatureLayer.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"
#include "platform/Terminal.h"
#include "startup/RecordedRun.h"
#include "startup/Settings.h"
#include "ui/terminal/TerminalInterface.h"
#include "util/Counted.h"
#include "vdconv/Command.h"
#include "vdconv/Conversion.h"

#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::vdconv {

namespace {

constexpr int done = 0, failed = 1, wrongUse = 2;

constexpr std::string_view usage =
    "usage: vdconv [--set SECTION.KEY=VALUE] SOURCE... DRAWING.VDF\n"
    "       vdconv [--set SECTION.KEY=VALUE] DRAWING.VDF TARGET\n"
    "       vdconv ? SOURCE ? TARGET ? 500 ...\n"
    "       vdconv --help | --version\n";

constexpr std::string_view help =
    "\n"
    "Makes a drawing of the sources, or a target of a drawing, by the extensions:\n"
    "  GPKG           GeoPackage, with all layers\n"
    "  GEOJSON, FGB   GeoJSON and FlatGeobuf; TARGET without its extension is a folder, with a file for "
    "each layer\n"
    "  TAB            MapInfo tables, in such a folder too\n"
    "  DXF            drawings of CAD programs; DGN (version 7) and DWG (2000) are read only\n"
    "Coordinates in another system than that of [GPS] TRANSFORMATION of gv.ini are converted to it; GeoJSON "
    "gets\n"
    "longitude and latitude. Question marks separate parameters for programs that pass them so.\n"
    "Exit status: 0 done; 1 failed, and what was there is unchanged; 2 wrong use.\n";

int Complain(const std::string& reason, int status) {
    std::string line = "vdconv: " + reason + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return status;
}

void TakeSettings(config::Installation& installation, const Command& command) {
    for (const config::IniOverride& value : command.settings) installation.Override(value);
    // The program that started this one logs what it is told.
    if (!command.report.empty()) installation.Override({"GENERICIN", "INOUTLOG", ""});
}

int StatusOf(const config::ConversionReport& report) {
    return report.outcome.status == config::Outcome::Status::Done ? done : failed;
}

/// For a program that started this one, which reads the report.
int PerformForProgram(const Command& command) {
    config::ConversionReport report;
    try {
        report = startup::RecordedRun(
            [&](config::Installation& installation) { TakeSettings(installation, command); },
            [&](config::Run& run, config::ConversionReport& told) { Convert(run, command, told); });
    } catch (const platform::Stopped&) {
        platform::EndBySignal();
        return failed;
    }
    platform::ReplaceFile(command.report, report.Text());
    return report.error.empty() ? StatusOf(report) : failed;
}

void Summarise(config::Run& run, const config::ConversionReport& report) {
    const config::Outcome& outcome = report.outcome;
    if (!outcome.target.empty())
        run.Ui().Report(util::Counted(outcome.layers, "layer") + ", " +
                        util::Counted(outcome.features, "feature") + " to " +
                        platform::NativePath(outcome.target));
    report.AddLossesTo(run.Losses());
    if (!run.Losses().Empty()) run.Ui().Report(run.Losses().Line());
}

int PerformForPerson(const Command& command) {
    ui::TerminalInterface terminal(stdin, stderr,
                                   {.yesToAll = false, .isTerminal = platform::IsTerminal(stderr)});
    config::Installation installation;
    startup::LocateSettings(installation);
    TakeSettings(installation, command);
    startup::ReadSettings(installation);
    config::Run run(installation, terminal);
    config::ConversionReport report;
    Convert(run, command, report);
    importer::OfferTemplates(run, report);
    Summarise(run, report);
    return StatusOf(report);
}

int Perform(const Command& command) {
    if (!command.report.empty()) return PerformForProgram(command);
    try {
        return PerformForPerson(command);
    } catch (const platform::Stopped&) {
        Complain("stopped", failed);
        platform::EndBySignal();
        return failed;
    } catch (const std::bad_alloc&) {
        return Complain("there is not enough memory", failed);
    }
}

int Run(const std::vector<std::string>& arguments) {
    bool printsHelp = arguments == std::vector<std::string>{"--help"};
    if (printsHelp || arguments == std::vector<std::string>{"--version"}) {
        platform::Print(printsHelp ? std::string(usage).append(help) : "vdconv " VEXLATOR_VERSION "\n");
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

}  // namespace vexlator::vdconv

int main(int argc, char** argv) {
    vexlator::platform::HandleFileSignals();
    vexlator::platform::StopOnSignals();
    vexlator::platform::RaiseOpenFileLimit();
    try {
        return vexlator::vdconv::Run({argv + 1, argv + argc});
    } catch (const vexlator::platform::OutputError&) {
        return 1;
    }
}
