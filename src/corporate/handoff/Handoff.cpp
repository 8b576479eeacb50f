// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/handoff/Handoff.h"

#include "config/Converter.h"
#include "config/OutsideProgram.h"
#include "config/Waiting.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <chrono>
#include <stdexcept>
#include <thread>

namespace vexlator::corporate {

namespace {

struct HandoffSettings {
    std::string corporateGis;
    bool commitCentrally = false, debug = false;
};

using Keys = config::Keys<HandoffSettings>;

constexpr config::KeyOf<HandoffSettings> keys[] = {
    Keys::Text("GENERAL", "CorporateGIS", &HandoffSettings::corporateGis,
               "where PDB, MXD and SWD exports write: a file geodatabase (.gdb), a GeoPackage (.gpkg) or a "
               "database, as "
               "in PG:dbname=county",
               "none"),
    Keys::Flag("GENERAL", "CommitCentrally", &HandoffSettings::commitCentrally,
               "SWD exports and imports are posted as tasks for CadcorpTasks, the central service"),
    Keys::Flag("GENERAL", "DEBUG", &HandoffSettings::debug, "SWD exports ask their program for details"),
};

HandoffSettings ReadHandoffSettings(const config::Run& run) {
    return config::ReadKeys<HandoffSettings>(run.Installation(), keys);
}

}  // namespace

GisProgram EsriProgram(const config::Run& run) {
    const char* folder = run.ReadIni("ESRI", "ARC10") == "0" ? "ESRI" : "ESRI10";
    return {std::string(folder) + "\\DrawingToEsri.exe", "ESRI Exporter Not installed"};
}

GisProgram CadcorpProgram() {
    return {"CadCorp\\DrawingToCadcorp.exe", "CadCorp Exporter Not installed"};
}

std::string CorporateGis(const config::Run& run) {
    return ReadHandoffSettings(run).corporateGis;
}

bool IsCentral(const config::Run& run) {
    return ReadHandoffSettings(run).commitCentrally;
}

bool AsksForDetails(const config::Run& run) {
    return ReadHandoffSettings(run).debug;
}

std::string CadcorpSettings(const config::Run& run) {
    std::string path = util::JoinPath(run.Settings().WorkFlowSystem, "CadCorp.ini");
    return " INI \"" + platform::NativePath(path) + "\"";
}

std::string TaskFolderPath(const config::Run& run, const std::string& name) {
    return util::JoinPath(util::JoinPath(run.Settings().WorkFlowSystem, "tasks"), name);
}

std::string ImportArguments(const config::Run& run, const std::string& source, const std::string& drawing) {
    std::string text = "ACTION IMPORT GDB \"" + platform::NativePath(source) + "\" VD \"" +
                       platform::NativePath(drawing) + "\"";
    const config::ImportExtentBox& box = run.Options().extent;
    if (!box.IsSet()) return text;
    constexpr int decimals = 3;
    return text + " BOX " + util::FormatFixed(box.minX, decimals) + "," + util::FormatShortest(box.minY) +
           "," + util::FormatFixed(box.maxX, decimals) + "," + util::FormatShortest(box.maxY);
}

std::string Handoff::Find(const GisProgram& program) {
    std::string found = config::FindSuiteProgram(run_, program.path);
    if (found.empty()) {
        std::string path = util::JoinPath(run_.Settings().ProgramFolder, program.path);
        run_.Ui().ShowMessage(platform::NativePath(path) + "\r\n" + program.missing);
    }
    return found;
}

config::ConversionReport Handoff::Launch(const std::string& program, const std::string& arguments,
                                         const std::string& log, const std::function<bool()>& isDone) {
    platform::RemoveFile(log);
    config::OutsideProgram gis(run_, program, arguments);
    bool hasEnded = gis.WaitFor(
        isDone ? isDone : [&] { return util::FileSize(log) > 0; }, [this] { view_.Progress(0, 0); });
    if (!hasEnded && util::FileSize(log) == 0) throw std::runtime_error(gis.Problem());
    return Read(log);
}

config::ConversionReport Handoff::Post(const std::string& task, const std::string& arguments,
                                       const std::string& log) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds pause(100);
    platform::RemoveFile(log);
    util::MakeFolderTree(util::FolderOf(task));
    platform::ReplaceFile(task, arguments);
    const double limit = config::UsualWait(run_);
    const Clock::time_point end =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(limit));
    try {
        while (util::FileSize(log) == 0) {
            if (Clock::now() > end)
                throw std::runtime_error(platform::NativePath(task) + ": no service has taken it");
            platform::ThrowIfStopped();
            view_.Progress(0, 0);
            std::this_thread::sleep_for(pause);
        }
    } catch (...) {
        platform::RemoveFile(task);  // what nobody waits for any more should not happen
        throw;
    }
    return Read(log);
}

config::ConversionReport Handoff::Read(const std::string& log) {
    config::ConversionReport report;
    if (util::FileSize(log) > 0) report = config::ReadConversionReport(platform::MappedFile(log).Text());
    config::ShowReport(run_, report);
    return report;
}

void Handoff::Finish() {
    run_.Ui().Beep();
    run_.Ui().Beep();
    config::Pause(run_.Ui(), 1);
}

config::KeyList CorporateKeys() {
    return config::ListOf<HandoffSettings>(keys);
}

}  // namespace vexlator::corporate
