// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/frmCSV.h"

#include "coords/frmLatLng.h"
#include "export/ExportSettings.h"
#include "export/HeaderNames.h"
#include "export/LayerLoop.h"
#include "export/LayerTurns.h"
#include "export/csv/CsvLayer.h"
#include "export/csv/CsvSettings.h"
#include "platform/AsciiCase.h"
#include "platform/OutputSet.h"
#include "util/Paths.h"
#include "util/Programs.h"
#include "util/Text.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vexlator::exporter {

namespace {

/// The files of one export.
class CsvFiles {
public:
    CsvFiles(const CsvSettings& settings, std::string_view folder, const std::string& baseName,
             const std::vector<ExportLayer>& layers)
        : settings_(settings), folder_(folder), single_(PathOf(baseName)) {
        if (settings.sepFiles) {
            for (const ExportLayer& layer : layers)
                writers_.emplace_back(Add(PathOf(layer.fileName)), settings.layout);
        } else if (!layers.empty()) {
            platform::OutputFile& file = Add(single_);
            writers_.emplace_back(file, settings.layout);
            turns_.emplace(file, single_, layers);
        }
    }

    formats::CsvWriter& WriterOf(std::size_t layer) { return writers_[settings_.sepFiles ? layer : 0]; }
    bool IsFirstInFile(std::size_t layer) const { return settings_.sepFiles || layer == 0; }
    /// Call both around the writing of a layer's part.
    void Begin(std::size_t layer) {
        if (turns_) writers_[0].GoOnIn(turns_->Begin(layer));
    }
    void End(const LayerPart& part) {
        if (turns_) turns_->End(part);
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
    std::deque<formats::CsvWriter> writers_;
    std::optional<LayerTurns> turns_;  ///< for the single file
};

}  // namespace

config::Outcome frmCSV::Start(std::string_view drawingPath, std::string_view targetPath, int asc) {
    CsvSettings settings = ReadCsvSettings(run_, asc == 1 ? CsvFlavour::Asc : CsvFlavour::Csv);
    BegunExport begun =
        BeginExport(run_, "frmCSV", drawingPath, targetPath, settings.extension == ".CSV" ? "LST" : "CSV");
    if (begun.IsStopped()) return begun.outcome;
    std::unique_ptr<coords::frmLatLng> converter;
    if (settings.latLng) converter = std::make_unique<coords::frmLatLng>(run_);

    std::vector<ExportLayer> layers = FindLayers(begun, LayerZero::Skip);
    CsvFiles files(settings, targetPath, ProjectPrefix(run_) + util::BaseNameOf(drawingPath), layers);
    std::deque<CsvLayer> blocks;
    bool byName = run_.Settings().MatchNames;
    for (const ExportLayer& layer : layers)
        blocks.emplace_back(run_, settings, converter.get(), layer,
                            HeaderNames(layer, begun.file->Current(), byName), files.WriterOf(blocks.size()),
                            files.IsFirstInFile(blocks.size()));
    WriteLayers(
        run_, begun, layers,
        [&](std::size_t layer, const LayerPart& part) {
            files.Begin(layer);
            blocks[layer].Write(part);
            files.End(part);
        },
        [&](std::size_t layer) { return blocks[layer].Finish(); });
    files.Commit();
    if (run_.Settings().AutoLaunchExport)
        for (const std::string& path : files.Paths()) util::OpenDocument(path);
    run_.Ui().Settle(1);
    return begun.outcome;
}

}  // namespace vexlator::exporter
