// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/meter/frmCAW.h"

#include "export/LayerLoop.h"
#include "export/meter/MeterReadings.h"
#include "platform/Paths.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <string>

namespace vexlator::exporter {

namespace {

constexpr std::string_view meterLayer = "METER";

}  // namespace

config::Outcome frmCAW::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport run = BeginExport(session_, "frmCAW", drawingPath, targetPath);
    if (run.IsStopped()) return run.outcome;
    drawing::Drawing drawing;
    OpenWhole(run, drawingPath, drawing);
    std::string name = util::BaseNameOf(drawingPath);
    std::string path = util::JoinPath(targetPath, name + ".TXT");
    ForEachLayer(session_, drawing, *run.view, LayerZero::Skip, [&](const WholeLayer& layer) {
        if (!platform::SameNoCase(layer.layer.name, meterLayer)) return;
        platform::OutputFile file(path);
        run.outcome.features = WriteMeterReadings(session_, layer, name, file);
        file.Commit();
        run.outcome.layers = 1;
        run.outcome.target = path;
    });
    if (session_.Settings().AutoLaunchExport && run.outcome.layers > 0) util::OpenDocument(path);
    util::Pause(session_.Ui(), 1);
    return run.outcome;
}

}  // namespace vexlator::exporter
