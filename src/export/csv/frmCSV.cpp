// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/frmCSV.h"

#include "coords/frmLatLng.h"
#include "export/LayerLoop.h"
#include "export/ProjectPrefix.h"
#include "export/csv/CsvLayer.h"
#include "export/csv/CsvSettings.h"
#include "platform/OutputSet.h"
#include "platform/Paths.h"
#include "util/Paths.h"
#include "util/Programs.h"
#include "util/Text.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vexlator::exporter {

namespace {

/// The files of one export.
class CsvFiles {
public:
    CsvFiles(const CsvSettings& settings, std::string_view folder, const std::string& baseName)
        : settings_(settings), folder_(folder), single_(PathOf(baseName)) {}

    /// Calls `write(CsvWriter&)` with the writer of the file that a layer goes to.
    template <typename Write>
    void ForLayer(const ExportLayer& layer, Write write) {
        if (settings_.sepFiles) {
            formats::CsvWriter writer(Add(PathOf(layer.fileName)), settings_.layout);
            write(writer);
            files_.FinishSoFar();
        } else {
            if (!writer_) writer_.emplace(Add(single_), settings_.layout);
            write(*writer_);
        }
    }
    void Commit() {
        files_.Commit();
        auto isSingle = [&](const std::string& path) { return platform::SameNoCase(path, single_); };
        if (std::ranges::none_of(paths_, isSingle)) platform::RemoveFile(single_);
    }
    const std::vector<std::string>& Paths() const { return paths_; }

private:
    std::string PathOf(const std::string& baseName) const {
        return util::JoinPath(folder_, baseName + std::string(settings_.extension));
    }
    platform::OutputFile& Add(const std::string& path) {
        paths_.push_back(path);
        return files_.Add(path);
    }

    const CsvSettings& settings_;
    std::string folder_, single_;
    platform::OutputSet files_;
    std::vector<std::string> paths_;
    std::optional<formats::CsvWriter> writer_;
};

}  // namespace

config::Outcome frmCSV::Start(std::string_view drawingPath, std::string_view targetPath, int asc) {
    OpenExport run(session_, "frmCSV", drawingPath, targetPath);
    if (run.IsStopped()) return run.outcome;
    CsvSettings settings = ReadCsvSettings(session_, asc == 1 ? CsvFlavour::Asc : CsvFlavour::Csv);
    std::unique_ptr<coords::frmLatLng> converter;
    if (settings.latLng) converter = std::make_unique<coords::frmLatLng>(session_);

    CsvFiles files(settings, targetPath, ProjectPrefix(session_) + util::BaseNameOf(drawingPath));
    run.outcome.layers =
        ForEachLayer(session_, run.drawing, *run.view, LayerZero::Skip, [&](const ExportLayer& layer) {
            files.ForLayer(layer, [&](formats::CsvWriter& writer) {
                run.outcome.features +=
                    CsvLayer(session_, settings, converter.get(), layer, writer).Write(*run.view);
            });
        });
    files.Commit();
    if (session_.Settings().AutoLaunchExport)
        for (const std::string& path : files.Paths()) util::OpenDocument(path);
    session_.Ui().Settle(1);
    return run.outcome;
}

}  // namespace vexlator::exporter
