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

MifSettings ReadSettings(const config::Session& session) {
    MifSettings settings;
    std::string coordSys = session.ReadIni("MID", "MIDMIFHEADER");
    if (!coordSys.empty()) settings.coordSys = coordSys;
    settings.strict = session.ReadIniFlag("MID", "Strict");
    return settings;
}

}  // namespace

config::Outcome frmMID::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport run = BeginExport(session_, "frmMID", drawingPath, targetPath);
    if (run.IsStopped()) return run.outcome;
    MifSettings settings = ReadSettings(session_);
    platform::OutputSet files;
    std::vector<ExportLayer> layers = FindLayers(run, LayerZero::Skip);
    std::deque<MifLayer> pairs;
    for (const ExportLayer& layer : layers) pairs.emplace_back(session_, settings, layer, targetPath, files);
    WriteLayers(
        session_, run, layers, [&](std::size_t layer, const LayerPart& part) { pairs[layer].Write(part); },
        [&](std::size_t layer) { return pairs[layer].Finish(); });
    files.Commit();
    session_.Ui().Settle(1);
    return run.outcome;
}

}  // namespace vexlator::exporter
