// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/mif/frmMID.h"

#include "export/LayerLoop.h"
#include "export/mif/MifLayer.h"
#include "platform/OutputSet.h"
#include "util/Paths.h"

#include <deque>

namespace vexlator::exporter {

config::Outcome frmMID::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmMID", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    MifSettings settings = ReadMifSettings(run_);
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
