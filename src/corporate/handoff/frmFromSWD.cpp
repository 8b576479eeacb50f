// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/handoff/frmFromSWD.h"

#include "config/Waiting.h"
#include "corporate/handoff/Handoff.h"
#include "import/FeatureLayer.h"
#include "import/SourceFiles.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <stdexcept>

namespace vexlator::corporate {

config::Outcome frmFromSWD::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view) {
    auto view = run_.Ui().ShowForm("frmFromSWD");
    const bool isCentral = IsCentral(run_);
    if (isCentral) view->SetLabel("Requesting SWD....");
    Handoff handoff(run_, *view);
    const std::string program = handoff.Find(CadcorpProgram());
    config::Outcome failed;
    failed.status = config::Outcome::Status::Failed;
    if (program.empty()) return failed;
    const std::string drawing = importer::DrawingPath(sourcePath, sourceFolder);
    const std::string made = isCentral ? TaskFolderPath(run_, util::FileNameOf(drawing)) : drawing;
    const std::string log = util::ChangeExtension(made, "LOG");
    const std::string arguments =
        ImportArguments(run_, std::string(sourcePath), made) + CadcorpSettings(run_);
    config::ConversionReport report = isCentral
                                          ? handoff.Post(util::ChangeExtension(made, "task"), arguments, log)
                                          : handoff.Launch(program, arguments, log);
    bool isDone = report.outcome.status == config::Outcome::Status::Done;
    if (isCentral && isDone && !platform::RenameFile(made, drawing))
        throw std::runtime_error(platform::NativePath(drawing) + ": cannot be moved there from " +
                                 platform::NativePath(made));
    report.outcome.target = drawing;
    importer::OfferTemplates(run_, report);
    config::Pause(run_.Ui(), 1);
    return report.outcome;
}

}  // namespace vexlator::corporate
