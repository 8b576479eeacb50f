// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/ConversionRun.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/PostExport.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <string>

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

std::string Counted(std::uint64_t count, std::string_view noun) {
    return util::GroupedCount(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

/// Ends a run with what it did and what it could not keep.
void Summarise(config::Session& session, std::string_view done, const Outcome& outcome) {
    session.Ui().Report(std::string(done) + " " + Counted(outcome.layers, "layer") + ", " +
                        Counted(outcome.features, "feature") + " to " + platform::NativePath(outcome.target));
    if (!session.Losses().Empty()) session.Ui().Report(session.Losses().Line());
}

ExitStatus NothingToDo(config::Session& session, const std::string& reason) {
    session.Ui().Report("vexlator: " + reason);
    return ExitStatus::NothingToDo;
}

/// A text file is a table, or a meter-reading file where the installation says so. A job file too short to
/// hold a job stands for the ADT file beside it.
void ChooseSource(const config::Session& session, ImportCommand& command) {
    constexpr std::uint64_t shortestJob = 64;
    if (command.code == "TXT") command.code = session.ReadIniFlag("THIRD", "CAW") ? "PPS" : "CSV";
    if (command.code != "JOB" || util::FileSize(command.sourcePath) >= shortestJob) return;
    std::string sibling = util::ChangeExtension(command.sourcePath, "ADT");
    if (util::FileSize(sibling) == 0) return;
    command.code = "ADT";
    command.sourcePath = sibling;
}

/// The folder of an export. One that this run made goes again, if it is still empty, unless it is kept.
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

private:
    std::string path_;
    bool made_;
};

}  // namespace

ExitStatus RunImport(config::Session& session, const Conversions& conversions, ImportCommand command) {
    ChooseSource(session, command);
    const ImportRow* row = conversions.FindImport(command.code);
    if (!row) return NothingToDo(session, "nothing imports \"" + command.code + "\"");
    if (!row->call) return NothingToDo(session, command.code + " import is not available yet");
    platform::RemoveLeftovers(command.sourceFolder);
    Outcome outcome = row->call(session, command);
    // A drawing is saved even when one of several files could not be read.
    if (!outcome.target.empty()) Summarise(session, "imported", outcome);
    return StatusOf(outcome);
}

ExitStatus RunExport(config::Session& session, const Conversions& conversions, ExportCommand command) {
    if (command.code.empty())
        return NothingToDo(
            session, "\"" + platform::NativePath(command.targetPath) + "\" names no format to export to");
    TargetFolder folder(command.targetPath);
    const ExportRow* row = conversions.FindExport(command.code);
    if (!row || !row->call) {
        folder.Keep();
        RunPostExportSteps(session, command);
        return NothingToDo(session, row ? command.code + " export is not available yet"
                                        : "nothing exports to \"" + command.code + "\"");
    }
    if (row->intoFmoDirectory) command.targetPath = session.Settings().FMODirectory;
    platform::RemoveLeftovers(command.targetPath);
    Outcome outcome = row->call(session, command);
    if (outcome.status != Outcome::Status::Done) return StatusOf(outcome);
    folder.Keep();
    RunPostExportSteps(session, command);
    Summarise(session, "exported", outcome);
    return ExitStatus::Done;
}

}  // namespace vexlator::startup
