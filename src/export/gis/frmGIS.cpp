// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/gis/frmGIS.h"

#include "config/Converter.h"
#include "config/Waiting.h"
#include "export/gis/PreparedDrawing.h"
#include "platform/Paths.h"
#include "util/Paths.h"
#include "util/Programs.h"

namespace vexlator::exporter {

config::Outcome frmGIS::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frm" + code_, drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    PreparedDrawing prepared(begun, drawingPath);
    config::ConversionReport report =
        config::RunConverter(run_, *begun.view,
                             {"export", code_, platform::NativePath(prepared.Path()),
                              platform::NativePath(targetPath), util::BaseNameOf(drawingPath)});
    begun.view->SetLabel("Completed!");
    bool isDone = report.outcome.status == config::Outcome::Status::Done;
    if (isDone && run_.Settings().AutoLaunchExport) util::OpenDocument(report.outcome.target);
    config::Pause(run_.Ui(), 1);
    return report.outcome;
}

}  // namespace vexlator::exporter
