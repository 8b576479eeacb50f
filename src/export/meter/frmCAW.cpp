// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/meter/frmCAW.h"

#include "config/Waiting.h"
#include "export/LayerLoop.h"
#include "export/meter/MeterReadings.h"
#include "platform/AsciiCase.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <string>

namespace vexlator::exporter {

namespace {

constexpr std::string_view meterLayer = "METER";

}  // namespace

config::Outcome frmCAW::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmCAW", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    drawing::Drawing drawing;
    OpenWhole(begun, drawingPath, drawing);
    std::string name = util::BaseNameOf(drawingPath);
    std::string path = util::JoinPath(targetPath, name + ".TXT");
    ForEachLayer(run_, drawing, *begun.view, LayerZero::Skip, [&](const WholeLayer& layer) {
        if (!platform::SameNoCase(layer.layer.name, meterLayer)) return;
        platform::OutputFile file(path);
        begun.outcome.features = WriteMeterReadings(run_, layer, name, file);
        file.Commit();
        begun.outcome.layers = 1;
        begun.outcome.target = path;
    });
    if (run_.Settings().AutoLaunchExport && begun.outcome.layers > 0) util::OpenDocument(path);
    config::Pause(run_.Ui(), 1);
    return begun.outcome;
}

}  // namespace vexlator::exporter
