// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/meter/frmCAW.h"

#include "export/LayerLoop.h"
#include "export/meter/MeterReadings.h"
#include "platform/Paths.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <memory>
#include <string>

namespace vexlator::exporter {

namespace {

constexpr std::string_view meterLayer = "METER";

}  // namespace

config::Outcome frmCAW::Start(std::string_view drawingPath, std::string_view targetPath) {
    std::unique_ptr<ui::FormView> view = session_.Ui().ShowForm("frmCAW");
    std::string name = util::BaseNameOf(drawingPath);
    view->SetCaption(":" + name);
    config::Outcome outcome;
    outcome.target = util::JoinPath(targetPath, name + ".TXT");
    drawing::Drawing drawing;
    if (!OpenForExport(session_, drawing, drawingPath, targetPath)) {
        outcome.status = config::Outcome::Status::StoppedByUser;
        return outcome;
    }
    ForEachLayer(session_, drawing, *view, LayerZero::Skip, [&](const ExportLayer& layer) {
        if (!platform::SameNoCase(layer.layer.name, meterLayer)) return;
        platform::OutputFile file(outcome.target);
        outcome.features = WriteMeterReadings(session_, layer, name, file);
        outcome.layers = 1;
        file.Commit();
    });
    if (session_.Settings().AutoLaunchExport && outcome.layers > 0) util::OpenDocument(outcome.target);
    util::Pause(session_.Ui(), 1);
    return outcome;
}

}  // namespace vexlator::exporter
