// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/go/GoFlow.h"

#include "background/package/Mosaic.h"
#include "config/Waiting.h"
#include "import/SourceFiles.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Process.h"
#include "platform/Signals.h"
#include "platform/Task.h"
#include "startup/ConversionRun.h"
#include "startup/go/Crew.h"
#include "startup/go/SourceConversion.h"
#include "startup/go/SourceKinds.h"
#include "util/Counted.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <algorithm>
#include <chrono>
#include <set>

namespace vexlator::startup {

namespace {

using State = RowResult::State;

struct TargetSettings {
    bool copiesSystem = false;
};

using Keys = config::Keys<TargetSettings>;

constexpr config::KeyOf<TargetSettings> keys[] = {
    Keys::Flag("GPS", "CopyCoordSys", &TargetSettings::copiesSystem,
               "Go copies the file of [GPS] TRANSFORMATION into the target's folder"),
};

/// What a source's drawing and package are named by.
std::string NameOf(const std::string& source) {
    return util::BaseNameOf(importer::DrawingPath(source, ""));
}

/// A row for each source of a list; its package lies in a sub-folder with its name. Long names are those that
/// the index over the sub-folders would shorten them to, so that the next Go finds its packages again.
std::vector<RowResult> RowsOf(const std::vector<std::string>& sources, const std::string& folder) {
    std::set<std::string> taken;
    for (const std::string& source : sources)
        if (background::ShortPackageName(NameOf(source)) == NameOf(source))
            taken.insert(platform::UpperAscii(NameOf(source)));
    std::vector<RowResult> rows;
    for (const std::string& source : sources) {
        std::string name = NameOf(source), shortName = background::ShortPackageName(name);
        if (taken.insert(platform::UpperAscii(shortName)).second) name = shortName;
        rows.push_back(
            {.source = source, .package = util::JoinPath(util::JoinPath(folder, name), name + ".GRP")});
    }
    return rows;
}

constexpr double pollSeconds = 0.1;

double Now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void Fail(RowResult& row, std::string reason) {
    row.state = State::Failed;
    row.reason = std::move(reason);
    std::ranges::replace(row.reason, '\n', ' ');
    std::erase(row.reason, '\r');
}

/// Rows of a name that another one has fail at once.
void FailDoubles(std::vector<RowResult>& rows) {
    std::set<std::string> names;
    for (RowResult& row : rows)
        if (!names.insert(platform::UpperAscii(NameOf(row.source))).second)
            Fail(row, "another source of the list is named " + NameOf(row.source) + " too");
}

}  // namespace

std::vector<std::string> FilesOfKind(std::string_view path) {
    std::string folder = util::FolderOf(path), extension = util::ExtensionOf(path);
    std::vector<std::string> files;
    for (const std::string& name : platform::ListFiles(folder))
        if (platform::SameNoCase(util::ExtensionOf(name), extension))
            files.push_back(util::JoinPath(folder, name));
    return files;
}

void ClearTargetFolder(std::string_view folder) {
    auto deletePackages = [](std::string_view each) {
        for (const char* extension : {"GRP", "BAG", "LAY", "GAZ", "PMM", "PMP", "BME", "DAT", "TXT"})
            util::DeleteFiles(util::JoinPath(each, std::string("*.") + extension));
    };
    for (const std::string& name : platform::ListFolders(folder)) {
        std::string path = util::JoinPath(folder, name);
        deletePackages(path);
        platform::RemoveEmptyFolder(path);
    }
    deletePackages(folder);
}

void GoFlow::Changed(std::size_t row) {
    if (options_.rowChanged) options_.rowChanged(row);
}

ExitStatus GoFlow::Go(const SelectionSettings& choices) {
    choices_ = WithWholePaths(choices);
    rows_.clear();
    isList_ = false;
    auto turn = WaitForTurn();
    SaveSelection(run_, choices_);
    if (const std::string& folder = run_.Options().folder; !folder.empty())
        choices_.txttarget = util::JoinPath(folder, util::FileNameOf(choices_.txttarget));
    if (!FindSources()) return ExitStatus::NothingToDo;
    if (!PrepareTarget()) return ExitStatus::NotUsable;
    return Dispatch();
}

/// Drawings of the same name, and settings that Go leaves for others to read, are one Go's at a time.
std::unique_ptr<platform::FileLock> GoFlow::WaitForTurn() {
    const std::string& folder = run_.Settings().TempDirectory;
    platform::RequireFolder(folder);
    auto view = run_.Ui().ShowForm("frmZSelect");
    for (bool isFirst = true;; isFirst = false) {
        try {
            return std::make_unique<platform::FileLock>(util::JoinPath(folder, "Go"),
                                                        std::chrono::seconds(0));
        } catch (const platform::LockHeld& held) {
            if (isFirst) run_.Ui().Report(std::string("waits for another Go: ") + held.what());
        }
        view->Progress(0, 0);
        platform::Sleep(pollSeconds);
    }
}

/// Makes txtSource the path of a file. Says why there is none.
bool GoFlow::FindSources() {
    if (!choices_.ListedFiles().empty()) return true;
    std::string& source = choices_.txtSource;
    if (!platform::FileExists(source) && source.find('*') != std::string::npos) {
        std::vector<std::string> files = FilesOfKind(source);
        if (!files.empty()) source = files.front();
    }
    if (platform::FileExists(source) && KindOf(source).treatment != Treatment::Nothing) return true;
    std::string reason =
        source.empty() ? "no source is set: GO txtSource=FILE,txttarget=PACKAGE.GRP names both"
        : !platform::FileExists(source) ? "there is no " + platform::NativePath(source)
                                        : "no package is made of " + platform::NativePath(source);
    Refuse(run_, reason, ExitStatus::NothingToDo);
    return false;
}

bool GoFlow::PrepareTarget() {
    std::string folder = util::FolderOf(choices_.txttarget);
    if (folder.empty() || util::BaseNameOf(choices_.txttarget).empty()) {
        Refuse(run_, "no target is set, as in txttarget=FOLDER/PACKAGE.GRP", ExitStatus::NotUsable);
        return false;
    }
    platform::RequireFolder(folder);
    std::vector<std::string> sources = choices_.ListedFiles();
    if (sources.empty()) sources.push_back(choices_.txtSource);
    bool hasTopography = std::ranges::any_of(
        sources, [](const std::string& source) { return KindOf(source).treatment == Treatment::Topography; });
    if (hasTopography && choices_.chkApplyMMCOU && choices_.chkClear) {
        run_.Ui().ShowMessage("Cannot Clear Target folder when applying Chang Only Updates");
        return false;
    }
    if (choices_.chkClear) ClearTargetFolder(folder);
    for (const std::string& each : {folder, run_.Settings().TempDirectory})
        if (std::string told = platform::RemoveLeftovers(each); !told.empty()) run_.Ui().Report(told);
    CopyCoordinateSystem();
    return true;
}

void GoFlow::CopyCoordinateSystem() {
    std::string file = run_.ReadIni("GPS", "TRANSFORMATION");
    bool isWanted = config::ReadKeys<TargetSettings>(run_.Installation(), keys).copiesSystem;
    if (!isWanted || !platform::FileExists(file)) return;
    platform::CopyWholeFile(file, util::JoinPath(util::FolderOf(choices_.txttarget), util::FileNameOf(file)));
}

ExitStatus GoFlow::Dispatch() {
    std::vector<std::string> listed = choices_.ListedFiles();
    if (!listed.empty()) return ConvertFiles(listed);
    switch (KindOf(choices_.txtSource).treatment) {
        case Treatment::ByDrawing:
            return ConvertFileList(choices_.txtSource, choices_.chkAll);
        case Treatment::ByGisProgram:
            return ConvertMapDocument();
        default:
            return ConvertAlone(choices_.txtSource);
    }
}

/// The backdrop builder makes drawings of it, which become a package each.
ExitStatus GoFlow::ConvertMapDocument() {
    rows_ = {{.source = choices_.txtSource, .package = choices_.txttarget, .state = State::Running}};
    Changed(rows_.size());
    std::string problem;
    try {
        SourceConversion(run_, options_.conversions, choices_)
            .LaunchBackdropBuilder(choices_.txtSource, choices_.txttarget,
                                   SourceConversion::BuilderMode::Package);
    } catch (const std::exception& error) {
        problem = error.what();
    } catch (...) {
        rows_[0].state = State::NotYet;
        throw;
    }
    std::string drawing = util::ChangeExtension(choices_.txttarget, "VDF");
    if (problem.empty() && !FilesOfKind(drawing).empty()) return ConvertFileList(drawing, true);
    if (problem.empty()) problem = "no drawing came of " + platform::NativePath(choices_.txtSource);
    run_.Ui().ShowMessage(problem);
    Fail(rows_[0], problem);
    Changed(0);
    return SumUp();
}

ExitStatus GoFlow::ConvertFileList(const std::string& source, bool all) {
    return all ? ConvertFiles(FilesOfKind(source)) : ConvertAlone(source);
}

ExitStatus GoFlow::ConvertAlone(const std::string& source) {
    rows_ = {{.source = source, .package = choices_.txttarget}};
    return ConvertRows();
}

ExitStatus GoFlow::ConvertFiles(const std::vector<std::string>& sources) {
    isList_ = true;
    rows_ = RowsOf(sources, util::FolderOf(choices_.txttarget));
    run_.Ui().Report("Files To Convert " + std::to_string(sources.size()));
    return ConvertRows();
}

ExitStatus GoFlow::RunAgain() {
    if (rows_.empty()) return ExitStatus::NothingToDo;
    auto turn = WaitForTurn();
    bool isMapDocument = !isList_ && KindOf(choices_.txtSource).treatment == Treatment::ByGisProgram;
    if (isMapDocument && rows_[0].state != State::Done) return ConvertMapDocument();
    for (RowResult& row : rows_)
        if (row.state != State::Done) row = {.source = row.source, .package = row.package};
    return ConvertRows();
}

/// Never throws but to end the work: a source that fails is a row that says so.
RowResult GoFlow::ConvertRow(RowResult row, RowInterface& ui) const {
    config::Installation installation(run_.Installation());
    config::Run run(installation, ui, run_.Options());
    double begin = Now();
    try {
        row.features =
            SourceConversion(run, options_.conversions, choices_).Convert(row.source, row.package, isList_);
        row.state = State::Done;
        KeepLosses(row, run);
    } catch (const NotConverted& error) {
        std::string told = error.isTold ? ui.LastSaid() : "";
        if (told.empty()) run.Ui().ShowMessage(error.what());
        Fail(row, told.empty() ? error.what() : told);
    } catch (const std::exception& error) {
        ShowError(run, error);
        Fail(row, ui.LastSaid());
    }
    row.seconds = Now() - begin;
    return row;
}

void GoFlow::KeepLosses(const RowResult& row, config::Run& run) const {
    if (run.Losses().Empty()) return;
    run.Ui().Report(platform::NativePath(util::FileNameOf(row.source)) + ": " + run.Losses().Line());
    std::lock_guard lock(losses_);
    run_.Losses().Add(run.Losses());
}

ExitStatus GoFlow::ConvertRows() {
    if (isList_) FailDoubles(rows_);
    Changed(rows_.size());
    auto view = run_.Ui().ShowForm("frmZSelect");
    std::vector<std::size_t> waiting;
    for (std::size_t i = 0; i < rows_.size(); ++i)
        if (rows_[i].state == State::NotYet) waiting.push_back(i);
    try {
        if (waiting.size() == 1)
            ConvertHere(waiting[0]);
        else
            ConvertAtOnce(waiting, *view);
        Assemble();
    } catch (...) {
        for (RowResult& row : rows_)
            if (row.state == State::Running) row.state = State::NotYet;
        throw;
    }
    view->SetCaption("Complete");
    config::Pause(run_.Ui(), 1);
    return SumUp();
}

void GoFlow::ConvertHere(std::size_t index) {
    rows_[index].state = State::Running;
    Changed(index);
    RowInterface ui(nullptr, run_.UnloggedUi());
    rows_[index] = ConvertRow(rows_[index], ui);
    Changed(index);
}

void GoFlow::ConvertAtOnce(const std::vector<std::size_t>& waiting, ui::FormView& view) {
    Desk desk;
    std::vector<std::unique_ptr<RowInterface>> rows;
    for (std::size_t i = 0; i < waiting.size(); ++i)
        rows.push_back(std::make_unique<RowInterface>(&desk, run_.UnloggedUi()));
    std::size_t told = 0, done = 0;
    auto change = [&](std::size_t index, RowResult row) {
        desk.Call([&] {
            rows_[index] = std::move(row);
            Changed(index);
            bool isRunning = rows_[index].state == State::Running;
            if (isRunning) view.SetLabel(platform::NativePath(rows_[index].source));
            done += isRunning ? 0 : 1;
            for (; told < waiting.size() &&
                   (rows_[waiting[told]].state == State::Done || rows_[waiting[told]].state == State::Failed);
                 ++told)
                rows[told]->TellAll();
        });
    };
    auto work = [&](std::size_t i) {
        RowResult row = rows_[waiting[i]];
        row.state = State::Running;
        change(waiting[i], row);
        change(waiting[i], ConvertRow(row, *rows[i]));
    };
    unsigned atOnce = options_.atOnce ? options_.atOnce : platform::CountProcessors();
    WorkAtOnce(desk, waiting.size(), atOnce, work, [&] { view.Progress(done, waiting.size()); });
}

/// The packages of a list get one index; and what a build deletes of the coordinate system is there again.
void GoFlow::Assemble() {
    if (isList_) background::BuildMosaicIndex(util::FolderOf(choices_.txttarget), false, run_.Ui());
    CopyCoordinateSystem();
}

ExitStatus GoFlow::SumUp() {
    config::Outcome& outcome = run_.Outcome();
    outcome = {.target = util::FolderOf(choices_.txttarget)};
    std::size_t done = 0;
    for (const RowResult& row : rows_) {
        outcome.features += row.features;
        if (row.state == State::Done)
            ++done;
        else
            run_.Ui().Report("failed: " + platform::NativePath(row.source) + ": " + row.reason);
    }
    outcome.status = done == rows_.size() ? config::Outcome::Status::Done : config::Outcome::Status::Failed;
    run_.Ui().Report("converted " + std::to_string(done) + " of " + util::Counted(rows_.size(), "source") +
                     " to " + platform::NativePath(outcome.target));
    return done == rows_.size() ? ExitStatus::Done : ExitStatus::Failed;
}

config::KeyList TargetKeys() {
    return config::ListOf<TargetSettings>(keys);
}

ExitStatus PerformGo(config::Run& run, std::string_view received) {
    SelectionSettings choices = RestoreSelection(run);
    // Another command may have left its own in gv.ini meanwhile.
    Preset(choices, GoOptions(received));
    GoFlow flow(run, {});
    try {
        return flow.Go(choices);
    } catch (const platform::Stopped&) {
        auto done = std::ranges::count(flow.Rows(), State::Done, &RowResult::state);
        run.Ui().Report("stopped; " + std::to_string(done) + " of " +
                        util::Counted(flow.Rows().size(), "source") +
                        " converted, what others would replace is unchanged");
        return ExitStatus::Interrupted;
    }
}

}  // namespace vexlator::startup
