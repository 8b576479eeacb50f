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
    OpenExport run(session_, "frmMID", drawingPath, targetPath);
    if (run.IsStopped()) return run.outcome;
    MifSettings settings = ReadSettings(session_);
    platform::OutputSet files;
    run.outcome.layers =
        ForEachLayer(session_, run.drawing, *run.view, LayerZero::Skip, [&](const ExportLayer& layer) {
            run.outcome.features += MifLayer(session_, settings, layer, targetPath, files).Write(*run.view);
            files.FinishSoFar();
        });
    files.Commit();
    session_.Ui().Settle(1);
    return run.outcome;
}

}  // namespace vexlator::exporter
