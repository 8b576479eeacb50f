// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/ConversionRun.h"

#include "config/OutsideProgram.h"
#include "drawing/DrawingFile.h"
#include "import/SourceFiles.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "startup/CommandLine.h"
#include "startup/PostExport.h"
#include "startup/Similar.h"
#include "startup/Slips.h"
#include "util/Counted.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <functional>
#include <new>
#include <string>
#include <vector>

namespace vexlator::startup {

namespace {

using config::Outcome;

ExitStatus StatusOf(const Outcome& outcome) {
    switch (outcome.status) {
        case Outcome::Status::Done:
            return ExitStatus::Done;
        case Outcome::Status::StoppedByUser:
            return ExitStatus::StoppedByUser;
        case Outcome::Status::Failed:
            break;
    }
    return ExitStatus::Failed;
}

/// Ends a run with its results, as in "exported SHP", and its losses.
void Summarise(config::Run& run, const std::string& done, const std::string& remark = "") {
    const Outcome& outcome = run.Outcome();
    run.Ui().Report(done + ": " + util::Counted(outcome.layers, "layer") + ", " +
                    util::Counted(outcome.features, "feature") + " to " +
                    platform::NativePath(outcome.target) + remark);
    if (!run.Losses().Empty()) run.Ui().Report(run.Losses().Line());
}

/// Why a finished export has no features.
std::string NoFeaturesRemark(const ExportCommand& command) {
    drawing::DrawingFile file(command.drawingPath);
    std::uint64_t count = file.EntityCount();
    std::string drawing = "; the drawing " + platform::NativePath(command.drawingPath);
    if (count == 0) return drawing + " has no features";
    drawing += " has " + util::Counted(count, "feature");
    bool isFrozen = !file.FindFirst(
        [&](const drawing::Entity& entity) { return !file.Current().layers()[entity.layerIndex()].frozen; });
    return drawing + (isFrozen ? ", all on frozen layers, which are not exported"
                               : ", none that " + command.code + " takes");
}

void ReportGuess(config::Run& run, const SourceList& sources) {
    std::size_t count = sources.paths.size();
    std::string last = platform::NativePath(util::FileNameOf(sources.paths.back()));
    std::string line = "reading " + platform::NativePath(sources.paths.front());
    if (count == 2) line += " and " + last;
    if (count > 2) line += " to " + last + ", " + util::Counted(count, "file") + ",";
    if (count > 1) line += " into one drawing";
    run.Ui().Report(line);
}

ImportCommand CommandOf(const SourceList& sources) {
    std::string text = "IMPORT";
    for (const std::string& path : sources.paths) text += (text.size() == 6 ? " " : "|") + path;
    return ParseImport(text);
}

struct SourceSettings {
    bool meterReadings = false;
};

using Keys = config::Keys<SourceSettings>;

constexpr config::KeyOf<SourceSettings> keys[] = {
    Keys::Flag("THIRD", "CAW", &SourceSettings::meterReadings,
               ".TXT files are imported as meter readings, not as tables"),
};

/// A text file is a table, or a meter-reading file if the installation says so.
std::string ChooseKindOfText(const config::Run& run, ImportCommand& command) {
    bool isReadings = config::ReadKeys<SourceSettings>(run.Installation(), keys).meterReadings;
    command.code = isReadings ? "PPS" : "CSV";
    if (!isReadings) return "";
    return platform::NativePath(command.sourcePath) +
           " is a file of meter readings, because [THIRD] CAW of gv.ini is 1; ";
}

/// A job file too short for a job stands for the ADT file beside it.
std::string ChooseFileOfJob(ImportCommand& command) {
    constexpr std::uint64_t shortestJob = 64;
    std::string sibling = util::ChangeExtension(command.sourcePath, "ADT");
    if (util::FileSize(command.sourcePath) >= shortestJob || util::FileSize(sibling) == 0) return "";
    std::string reason = platform::NativePath(command.sourcePath) +
                         " is too short for a job and stands for " + util::FileNameOf(sibling) + "; ";
    command.code = "ADT";
    command.sourcePath = sibling;
    return reason;
}

/// The source of a command. Returns why it differs from the named one, "" if it is the named one.
std::string ChooseSource(const config::Run& run, ImportCommand& command) {
    if (command.code == "TXT") return ChooseKindOfText(run, command);
    return command.code == "JOB" ? ChooseFileOfJob(command) : "";
}

/// For a format without an export, as in "; did you mean "/data/roads.MID" (MapInfo interchange files)?"
std::string MeantExport(const Conversions& conversions, const ExportCommand& command) {
    for (const ExportRow& row : conversions.exports)
        if (IsOneSlipFrom(command.code, row.code))
            return "; did you mean \"" +
                   platform::NativePath(util::ChangeExtension(command.drawingPath, row.code)) + "\" (" +
                   std::string(row.words) + ")?";
    return "; formats are " + conversions.ExportList();
}

/// Why a program that a conversion needs is missing, for the user; "" if it is there, or none is needed.
std::string MissingProgram(const config::Run& run, std::string_view program, const std::string& code) {
    if (program.empty() || !config::FindSuiteProgram(run, program).empty()) return "";
    std::string name(program.substr(0, program.rfind('.')));
    return code + " needs the program " + name +
           ", which is not installed; the package vexlator-tools brings it";
}

/// Does work that a signal may stop, and then reports the state of the output.
ExitStatus Stoppable(config::Run& run, const std::string& left, const std::function<ExitStatus()>& work) {
    try {
        return work();
    } catch (const platform::Stopped&) {
        run.Ui().Report("stopped; " + left);
        return ExitStatus::Interrupted;
    }
}

/// The folder of an export. A folder made by this run is removed if it is still empty, unless it is kept.
class TargetFolder {
public:
    explicit TargetFolder(std::string_view path) : path_(path), made_(!platform::FolderExists(path)) {
        util::MakeFolder(path_);
    }
    ~TargetFolder() {
        if (made_) util::RemoveFolder(path_);
    }
    TargetFolder(const TargetFolder&) = delete;
    TargetFolder& operator=(const TargetFolder&) = delete;
    void Keep() { made_ = false; }
    /// @throws platform::WriteError: why it could not be created
    void Require() const { platform::RequireFolder(path_); }

private:
    std::string path_;
    bool made_;
};

void RemoveLeftovers(config::Run& run, const std::string& folder) {
    if (std::string told = platform::RemoveLeftovers(folder); !told.empty()) run.Ui().Report(told);
}

ExitStatus Import(config::Run& run, const ImportRow& row, const ImportCommand& command) {
    std::string target = importer::DrawingPath(command.sourcePath, command.sourceFolder);
    std::string left = platform::NativePath(target) + " is unchanged";
    try {
        return Stoppable(run, left, [&] {
            RemoveLeftovers(run, command.sourceFolder);
            run.Outcome() = row.call(run, command);
            // A drawing is saved even if one of several files could not be read.
            if (!run.Outcome().target.empty()) Summarise(run, "imported " + command.code);
            return StatusOf(run.Outcome());
        });
    } catch (const std::exception& error) {
        ShowError(run, error);
        if (util::FileSize(target) > 0) run.Ui().Report(left);
        return ExitStatus::Failed;
    }
}

/// An export that is not done has made nothing, whatever it named.
void ForgetUnmadeOutputs(Outcome& outcome) {
    Outcome::Status status = outcome.status;
    if (status == Outcome::Status::Done) return;
    outcome = {};
    outcome.status = status;
}

/// The steps after an export follow a hand-off that failed, too.
config::Outcome CallExport(config::Run& run, const ExportRow& row, const ExportCommand& command) {
    if (!row.handsOver) return row.call(run, command);
    try {
        return row.call(run, command);
    } catch (const platform::Stopped&) {
        throw;
    } catch (const std::exception& error) {
        ShowError(run, error);
        config::Outcome failed;
        failed.status = Outcome::Status::Failed;
        return failed;
    }
}

ExitStatus Export(config::Run& run, const ExportRow& row, ExportCommand command, TargetFolder& folder) {
    if (run.Options().extent.IsSet())
        run.Ui().Report("?BOX limits imports of databases only; " +
                        platform::NativePath(command.drawingPath) + " is exported whole");
    if (row.intoFmoDirectory && run.Options().folder.empty())
        command.targetPath = run.Settings().FMODirectory;
    if (platform::FileExists(command.drawingPath)) folder.Require();
    std::string target = platform::NativePath(command.targetPath);
    ExitStatus status = Stoppable(run, target + " is unchanged", [&] {
        RemoveLeftovers(run, command.targetPath);
        run.Outcome() = CallExport(run, row, command);
        ForgetUnmadeOutputs(run.Outcome());
        return StatusOf(run.Outcome());
    });
    bool goesOn = status == ExitStatus::Done || (row.handsOver && status == ExitStatus::Failed);
    if (!goesOn) return status;
    if (!row.handsOver) folder.Keep();  // else only when photographs are in it
    return Stoppable(run, "the export to " + target + " is complete, but the steps after it are not", [&] {
        bool isComplete = RunPostExportSteps(run, command);
        if (status != ExitStatus::Done) return status;
        Summarise(run, "exported " + command.code,
                  run.Outcome().features == 0 ? NoFeaturesRemark(command) : "");
        return isComplete ? ExitStatus::Done : ExitStatus::Failed;
    });
}

}  // namespace

void ShowError(config::Run& run, const std::exception& error) {
    bool isMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
    run.Ui().ShowMessage(isMemory ? "Not enough memory" : error.what());
}

ExitStatus Refuse(config::Run& run, const std::string& reason, ExitStatus status) {
    run.Ui().Report("vexlator: " + reason);
    return status;
}

ExitStatus RunImport(config::Run& run, const Conversions& conversions, std::string_view text) {
    SourceList sources = FindSources(conversions, ImportArgument(text));
    if (auto slip = FindImportSlip(conversions, text, sources))
        return Refuse(run, slip->advice, slip->status);
    if (sources.guessed) ReportGuess(run, sources);
    ImportCommand command = CommandOf(sources);
    if (!run.Options().folder.empty()) command.sourceFolder = run.Options().folder;
    std::string reason = ChooseSource(run, command);
    const ImportRow* row = conversions.FindImport(command.code);
    if (!row)
        return Refuse(
            run, reason + "nothing imports \"" + command.code + "\"; formats are " + conversions.ImportList(),
            ExitStatus::NothingToDo);
    if (std::string missing = MissingProgram(run, row->program, command.code); !missing.empty())
        return Refuse(run, missing, ExitStatus::NothingToDo);
    if (run.Options().extent.IsSet() && !row->takesExtent)
        run.Ui().Report("?BOX limits imports of databases only; " + platform::NativePath(command.sourcePath) +
                        " is read whole");
    return Import(run, *row, command);
}

ExitStatus RunExport(config::Run& run, const Conversions& conversions, std::string_view text) {
    if (auto slip = FindExportSlip(conversions, text)) return Refuse(run, slip->advice, slip->status);
    ExportCommand command = ParseExport(text);
    if (const std::string& folder = run.Options().folder; !folder.empty())
        command.targetPath = util::JoinPath(folder, util::FileNameOf(command.targetPath));
    TargetFolder folder(command.targetPath);
    const ExportRow* row = conversions.FindExport(command.code);
    if (!row) {
        RunPostExportSteps(run, command);
        return Refuse(run, "nothing exports to \"" + command.code + "\"" + MeantExport(conversions, command),
                      ExitStatus::NothingToDo);
    }
    if (std::string missing = MissingProgram(run, row->program, command.code); !missing.empty())
        return Refuse(run, missing, ExitStatus::NothingToDo);
    return Export(run, *row, command, folder);
}

config::KeyList SourceKeys() {
    return config::ListOf<SourceSettings>(keys);
}

}  // namespace vexlator::startup
