// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/handoff/frmESRI.h"

#include "corporate/handoff/Handoff.h"
#include "corporate/handoff/PrepareDrawing.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"

namespace vexlator::corporate {

config::Outcome frmESRI::Start(std::string_view drawingPath, std::string_view targetPath) {
    exporter::BegunExport begun = exporter::BeginExport(run_, "frmESRI", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    constexpr std::string_view shortNames = "QUENDALE";
    PrepareDrawing(
        begun, drawingPath,
        run_.ReadIni("GENERAL", "Company") == shortNames ? AttributeNames::CutToTen : AttributeNames::Whole);
    Handoff handoff(run_, *begun.view);
    begun.outcome.status = config::Outcome::Status::Failed;
    const std::string program = handoff.Find(EsriProgram(run_)), gis = CorporateGis(run_);
    if (program.empty()) return begun.outcome;
    if (gis.empty()) {
        run_.Ui().ShowMessage("No Corporate GIS defined a t Project Level");
        return begun.outcome;
    }
    const std::string drawing(drawingPath), log = util::ChangeExtension(drawing, "LOG");
    begun.file.reset();  // the program removes it
    config::ConversionReport report =
        handoff.Launch(program, "GDB \"" + gis + "\" VD \"" + platform::NativePath(drawing) + "\"", log,
                       [&drawing] { return util::FileSize(drawing) == 0; });
    platform::RemoveFile(log);
    handoff.Finish();
    return report.outcome;
}

}  // namespace vexlator::corporate
