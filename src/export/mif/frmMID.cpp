// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/mif/frmMID.h"

#include "export/LayerLoop.h"
#include "export/mif/MifLayer.h"
#include "platform/OutputSet.h"
#include "util/Paths.h"

#include <deque>

namespace vexlator::exporter {

namespace {

MifSettings ReadSettings(const config::Run& run) {
    MifSettings settings;
    std::string coordSys = run.ReadIni("MID", "MIDMIFHEADER");
    if (!coordSys.empty()) settings.coordSys = coordSys;
    settings.strict = run.ReadIniFlag("MID", "Strict");
    return settings;
}

}  // namespace

config::Outcome frmMID::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmMID", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    MifSettings settings = ReadSettings(run_);
    platform::OutputSet files;
    std::vector<ExportLayer> layers = FindLayers(begun, LayerZero::Skip);
    std::deque<MifLayer> pairs;
    for (const ExportLayer& layer : layers) pairs.emplace_back(run_, settings, layer, targetPath, files);
    WriteLayers(
        run_, begun, layers, [&](std::size_t layer, const LayerPart& part) { pairs[layer].Write(part); },
        [&](std::size_t layer) { return pairs[layer].Finish(); });
    files.Commit();
    run_.Ui().Settle(1);
    return begun.outcome;
}

}  // namespace vexlator::exporter
