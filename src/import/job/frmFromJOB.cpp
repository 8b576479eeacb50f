// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/frmFromJOB.h"

#include "formats/job/JobText.h"
#include "formats/job/SupersededRecords.h"
#include "gpx/frmGPX.h"
#include "import/SourceFiles.h"
#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "ui/UserInterface.h"
#include "util/Counted.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace vexlator::importer {

namespace {

constexpr std::string_view sourceProperty = "Source";

bool ComesFrom(const drawing::Drawing& drawing, std::string_view jobPath) {
    std::string job = platform::AbsolutePath(jobPath);
    return std::ranges::any_of(drawing.properties(), [&](const auto& property) {
        return property.first == sourceProperty &&
               platform::SameNoCase(platform::AbsolutePath(property.second), job);
    });
}

/// Exports need the job of a drawing to find its photographs and to record the export.
void NameSource(drawing::Drawing& drawing, std::string_view jobPath) {
    auto isSource = [](const auto& property) { return property.first == sourceProperty; };
    if (std::ranges::none_of(drawing.properties(), isSource))
        drawing.properties().emplace_back(sourceProperty, platform::AbsolutePath(jobPath));
}

std::uint64_t LayersInUse(const drawing::Drawing& drawing) {
    std::unordered_set<const std::string*> names;
    drawing.forEach([&](const drawing::EntityView& entity) { names.insert(&entity.layerName()); });
    return names.size();
}

void ReportLeftOut(ui::UserInterface& ui, const std::string& file, const formats::JobTable& table,
                   const JobCounts& counts) {
    if (counts.leftOut == 0) return;
    ui.Report(file + ": " + util::Counted(counts.leftOut, "position") +
              " left out because x or y is not a number, the first in line " +
              std::to_string(table.LineNumber(counts.firstLeftOut)));
}

}  // namespace

config::Outcome frmFromJOB::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    import_.Begin(sourcePath, sourceFolder, ImportRun::Existing::AddedTo);
    std::uint64_t before = drawing_.entityCount();
    std::vector<std::string> paths = SourceFiles(sourcePath, fileList);
    bool isOfSameJob =
        std::ranges::any_of(paths, [&](const auto& path) { return ComesFrom(drawing_, path); });
    JobToDrawing importer(run_, drawing_, ReadJobSettings(run_));
    import_.ForEachSource(sourcePath, fileList,
                          [&](const std::string& path) { return ImportJobFile(path, importer); });
    NameSource(drawing_, sourcePath);
    if (!gpx::frmGPX(run_).ProcessAnyTrailData(util::FolderOf(sourcePath))) import_.LeaveOut();
    std::uint64_t layers = LayersInUse(drawing_), features = drawing_.entityCount();
    config::Outcome outcome = import_.Finish();
    if (outcome.target.empty()) return outcome;
    outcome.layers = layers;
    outcome.features = features;
    if (before > 0) ReportAddition(outcome, before, isOfSameJob);
    return outcome;
}

/// A second import of the same job would duplicate all of its features, and nothing else would show it.
void frmFromJOB::ReportAddition(const config::Outcome& outcome, std::uint64_t before, bool isOfSameJob) {
    std::uint64_t added = std::max(outcome.features, before) - before;
    std::string line = platform::NativePath(outcome.target) + ": " + util::Counted(added, "feature") +
                       " added: now " + util::GroupedCount(outcome.features);
    if (isOfSameJob)
        line += "; this job was imported before: remove the drawing first to import it only once";
    run_.Ui().Report(line);
}

bool frmFromJOB::ImportJobFile(const std::string& path, JobToDrawing& importer) {
    auto file = OpenFile(path, run_.Ui());
    if (!file) return false;
    JobCounts counts;
    try {
        formats::JobText text(*file);
        formats::JobTable table(text.Text());
        formats::ResolveSupersededRecords(table);
        counts = importer.ImportRecords(table, path, import_.View());
        import_.CountFeatures(counts.entities + counts.closings);
        ReportLeftOut(run_.Ui(), file->Name(), table, counts);
        if (counts.entities + counts.closings == 0) {
            run_.Ui().ShowMessage(file->Name() + ": contains no position of a device job to import");
            return false;
        }
    } catch (const platform::ReadError& error) {
        throw error.InFile(file->Name());
    }
    import_.View().SetLabel(util::GroupedCount(counts.positions) + " positions, " +
                            util::GroupedCount(counts.entities) + " entities");
    run_.Ui().Settle(0.01);
    import_.View().SetLabel("Completed!");
    return true;
}

}  // namespace vexlator::importer
