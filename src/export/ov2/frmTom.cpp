// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/ov2/frmTom.h"

#include "coords/frmLatLng.h"
#include "export/LayerLoop.h"
#include "export/ov2/PoiLayer.h"
#include "platform/OutputSet.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <deque>
#include <vector>

namespace vexlator::exporter {

config::Outcome frmTom::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmTom", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    coords::frmLatLng converter(run_);
    platform::OutputSet files;
    std::vector<ExportLayer> layers = FindLayers(begun, LayerZero::Export);
    std::deque<PoiLayer> categories;
    for (const ExportLayer& layer : layers)
        categories.emplace_back(run_, converter, layer,
                                files.Add(util::JoinPath(targetPath, layer.fileName + ".OV2")));
    WriteLayers(
        run_, begun, layers, [&](std::size_t layer, const LayerPart& part) { categories[layer].Write(part); },
        [&](std::size_t layer) { return categories[layer].Finish(); });
    if (!layers.empty() && begun.outcome.features == 0) {
        run_.Ui().ShowMessage(
            "nothing is written, because no feature has a position inside the coordinate conversion");
        begun.outcome.status = config::Outcome::Status::Failed;
        return begun.outcome;
    }
    files.Commit();
    if (run_.Settings().AutoLaunchExport) util::OpenDocument(begun.outcome.target);
    return begun.outcome;
}

}  // namespace vexlator::exporter
