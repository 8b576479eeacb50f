// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/frmFromJOB.h"

#include "gpx/frmGPX.h"
#include "import/SaveImport.h"
#include "import/SourceFiles.h"
#include "import/job/JobText.h"
#include "import/job/SupersededRecords.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <algorithm>

namespace vexlator::importer {

namespace {

JobSettings ReadSettings(const config::Session& session) {
    JobSettings settings;
    settings.importQA = session.ReadIniFlag("JOB", "ImportQA");
    settings.forceClose = session.ReadIni("JOB", "ForceClose") != "0";
    return settings;
}

/// Exports find the photographs of a drawing, and the job to record, by the job that it came from.
void NameSource(drawing::Drawing& drawing, std::string_view jobPath) {
    auto isSource = [](const auto& property) { return property.first == "Source"; };
    if (std::ranges::none_of(drawing.properties(), isSource))
        drawing.properties().emplace_back("Source", platform::AbsolutePath(jobPath));
}

}  // namespace

config::Outcome frmFromJOB::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    view_ = session_.Ui().ShowForm("frmFromJOB");
    config::Outcome outcome;
    outcome.target = util::JoinPath(sourceFolder, util::BaseNameOf(sourcePath) + ".VDF");
    if (util::FileSize(outcome.target) > 0) drawing_.open(outcome.target);
    JobToDrawing importer(session_, drawing_, ReadSettings(session_));
    bool complete = true;
    for (const std::string& path : SourceFiles(sourcePath, fileList))
        complete &= ImportJobFile(path, importer, outcome);
    NameSource(drawing_, sourcePath);
    complete &= gpx::frmGPX(session_).ProcessAnyTrailData(util::FolderOf(sourcePath));
    if (!complete) outcome.status = config::Outcome::Status::Failed;
    return SaveImport(session_, drawing_, outcome, [&] { drawing_.saveAs(outcome.target); });
}

bool frmFromJOB::ImportJobFile(const std::string& path, JobToDrawing& importer, config::Outcome& outcome) {
    auto file = util::OpenFile(path, &session_.Ui());
    if (!file) return false;
    JobCounts counts;
    try {
        JobText text(*file);
        JobTable table(text.Text());
        ResolveSupersededRecords(table);
        counts = importer.ImportRecords(table, path, *view_);
    } catch (const platform::ReadError& error) {
        throw error.InFile(file->Name());
    }
    drawing_.zoomExtents();
    view_->SetLabel(util::GroupedCount(counts.positions) + " positions, " +
                    util::GroupedCount(counts.entities) + " entities");
    session_.Ui().Settle(0.01);
    view_->SetLabel("Completed!");
    outcome.features += counts.entities;
    return true;
}

}  // namespace vexlator::importer
