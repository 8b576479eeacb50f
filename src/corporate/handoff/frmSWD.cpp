// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/handoff/frmSWD.h"

#include "corporate/handoff/Handoff.h"
#include "corporate/handoff/PrepareDrawing.h"
#include "platform/Paths.h"
#include "util/Paths.h"

namespace vexlator::corporate {

config::Outcome frmSWD::Start(std::string_view drawingPath, std::string_view targetPath) {
    exporter::BegunExport begun = exporter::BeginExport(run_, "frmSWD", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    PrepareDrawing(begun, drawingPath, AttributeNames::Whole);
    const bool isCentral = IsCentral(run_);
    if (isCentral) begun.view->SetLabel("Posting SWD...");
    Handoff handoff(run_, *begun.view);
    begun.outcome.status = config::Outcome::Status::Failed;
    const std::string program = handoff.Find(CadcorpProgram()), gis = CorporateGis(run_);
    if (program.empty()) return begun.outcome;
    if (gis.empty()) {
        run_.Ui().ShowMessage("No Corporate GIS defined at Project Level");
        return begun.outcome;
    }
    const std::string drawing(drawingPath), log = util::ChangeExtension(drawing, "LOG");
    std::string arguments = "ACTION EXPORT GDB \"" + gis + "\" VD \"" + platform::NativePath(drawing) + "\"" +
                            CadcorpSettings(run_);
    if (AsksForDetails(run_)) arguments += " DEBUG ON";
    const std::string task = TaskFolderPath(run_, util::BaseNameOf(drawing) + ".task");
    config::ConversionReport report =
        isCentral ? handoff.Post(task, arguments, log) : handoff.Launch(program, arguments, log);
    handoff.Finish();
    return report.outcome;
}

}  // namespace vexlator::corporate
