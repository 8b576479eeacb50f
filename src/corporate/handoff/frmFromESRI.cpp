// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/handoff/frmFromESRI.h"

#include "config/Waiting.h"
#include "corporate/handoff/Handoff.h"
#include "import/FeatureLayer.h"
#include "import/SourceFiles.h"
#include "util/Paths.h"

namespace vexlator::corporate {

config::Outcome frmFromESRI::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                   std::string_view) {
    auto view = run_.Ui().ShowForm("frmFromESRI");
    Handoff handoff(run_, *view);
    const std::string program = handoff.Find(EsriProgram(run_));
    config::Outcome failed;
    failed.status = config::Outcome::Status::Failed;
    if (program.empty()) return failed;
    const std::string drawing = importer::DrawingPath(sourcePath, sourceFolder);
    config::ConversionReport report =
        handoff.Launch(program, ImportArguments(run_, std::string(sourcePath), drawing),
                       util::ChangeExtension(drawing, "LOG"));
    importer::OfferTemplates(run_, report);
    config::Pause(run_.Ui(), 1);
    return report.outcome;
}

}  // namespace vexlator::corporate
