// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/store/HandoffProgram.h"

#include "corporate/store/ExportToStore.h"
#include "corporate/store/HandoffCommand.h"
#include "corporate/store/ImportFromStore.h"
#include "platform/Files.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"
#include "raster/Gdal.h"
#include "startup/RecordedRun.h"
#include "util/Counted.h"
#include "util/Paths.h"

#include <cstdio>
#include <exception>

namespace vexlator::corporate {

namespace {

constexpr int done = 0, failed = 1, wrongUse = 2;

constexpr std::string_view help =
    "Writes a drawing into the corporate GIS, or reads one from it.\n"
    "  STORE   a GeoPackage (.gpkg), a file geodatabase (.gdb) or a database, as in \"PG:dbname=county\"; an "
    "import\n"
    "          takes anything that GDAL reads\n"
    "Each feature code is a feature class. An export takes the place of an earlier one of the same job, "
    "whose\n"
    "features carry its path in the column VEXLATOR_JOB. An import with BOX takes what touches it.\n"
    "DRAWING.LOG beside the drawing tells of the end, and why it failed.\n"
    "Exit status: 0 done; 1 failed, and what was there is unchanged; 2 wrong use.\n";

std::string UsageOf(std::string_view name) {
    const std::string own(name), indent(sizeof("usage: ") - 1, ' ');
    return "usage: " + own + " [ACTION EXPORT] GDB STORE VD DRAWING [INI FILE] [DEBUG ON]\n" + indent + own +
           " ACTION IMPORT GDB STORE VD DRAWING [BOX minX,minY,maxX,maxY] [INI FILE]\n" + indent + own +
           " --help | --version\n";
}

void Say(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
}

void Convert(config::Run& run, const HandoffCommand& command, config::ConversionReport& report) {
    raster::StartGdal();
    run.Options().extent = command.extent;
    if (!command.isImport) {
        report.outcome = ExportToStore(run, command.drawing, command.store, report);
        return;
    }
    platform::RequireFolder(util::FolderOf(command.drawing));
    report.outcome = ImportFromStore(run, command.store, command.drawing, report);
}

void Tell(const config::ConversionReport& report) {
    for (const config::ConversionReport::Line& line : report.lines) Say(line.text + "\n");
    if (!report.error.empty()) return Say(report.error + "\n");
    config::LossReport losses;
    report.AddLossesTo(losses);
    if (!losses.Empty()) Say(losses.Line() + "\n");
    Say(util::Counted(report.outcome.layers, "layer") + ", " +
        util::Counted(report.outcome.features, "feature") + "\n");
}

int Perform(const HandoffCommand& command, SignOfExport sign) {
    platform::RemoveFile(command.LogPath());
    auto prepare = [&](config::Installation& installation) {
        installation.Override({"GENERICIN", "INOUTLOG", ""});  // that of the program that hands off
        if (command.showsDetails) installation.Override({"GENERAL", "VEXLATORDEBUG", "1"});
    };
    config::ConversionReport report = startup::RecordedRun(
        prepare, [&](config::Run& run, config::ConversionReport& told) { Convert(run, command, told); });
    bool isDone = report.error.empty() && report.outcome.status == config::Outcome::Status::Done;
    platform::ReplaceFile(command.LogPath(), report.Text());
    if (isDone && !command.isImport && sign == SignOfExport::DrawingGone)
        platform::RemoveFile(command.drawing);
    Tell(report);
    return isDone ? done : failed;
}

}  // namespace

int RunHandoffProgram(std::string_view name, SignOfExport sign, const std::vector<std::string>& arguments) {
    bool printsHelp = arguments == std::vector<std::string>{"--help"};
    if (printsHelp || arguments == std::vector<std::string>{"--version"}) {
        platform::Print(printsHelp ? UsageOf(name) + "\n" + std::string(help)
                                   : std::string(name) + " " VEXLATOR_VERSION "\n");
        platform::FinishPrinting();
        return done;
    }
    try {
        return Perform(ParseHandoff(arguments), sign);
    } catch (const WrongUse& error) {
        Say(std::string(name) + ": " + error.what() + "\n" + UsageOf(name));
        return wrongUse;
    } catch (const platform::Stopped&) {
        Say(std::string(name) + ": stopped\n");
        platform::EndBySignal();
        return failed;
    } catch (const std::exception& error) {
        Say(std::string(name) + ": " + error.what() + "\n");
        return failed;
    }
}

}  // namespace vexlator::corporate
