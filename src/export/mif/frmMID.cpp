// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/mif/frmMID.h"

#include "export/LayerLoop.h"
#include "export/mif/MifLayer.h"
#include "platform/OutputSet.h"
#include "util/Paths.h"

#include <memory>

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
    std::unique_ptr<ui::FormView> view = session_.Ui().ShowForm("frmMID");
    view->SetCaption(":" + util::BaseNameOf(drawingPath));
    config::Outcome outcome;
    outcome.target = targetPath;
    drawing::Drawing drawing;
    if (!OpenForExport(session_, drawing, drawingPath, targetPath)) {
        outcome.status = config::Outcome::Status::StoppedByUser;
        return outcome;
    }
    MifSettings settings = ReadSettings(session_);
    platform::OutputSet files;
    outcome.layers = ForEachLayer(session_, drawing, *view, LayerZero::Skip, [&](const ExportLayer& layer) {
        outcome.features += MifLayer(session_, settings, layer, targetPath, files).Write(*view);
        files.FinishSoFar();
    });
    files.Commit();
    session_.Ui().Settle(1);
    return outcome;
}

}  // namespace vexlator::exporter
