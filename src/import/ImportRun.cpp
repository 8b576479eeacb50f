// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/ImportRun.h"

#include "platform/Paths.h"
#include "util/Files.h"

namespace vexlator::importer {

using Status = config::Outcome::Status;

void ImportRun::Begin(std::string_view sourcePath, std::string_view folder, Existing existing) {
    view_ = run_.Ui().ShowForm(form_);
    outcome_.target = DrawingPath(sourcePath, folder);
    sink_.SetPath(outcome_.target);
    if (existing == Existing::AddedTo && util::FileSize(outcome_.target) > 0)
        sink_.Drawing().open(outcome_.target);
}

config::Outcome ImportRun::SaveNothing() {
    if (util::FileSize(outcome_.target) > 0)
        run_.Ui().Report(platform::NativePath(outcome_.target) +
                         " is as it was: nothing was read that could replace it");
    LeaveOut();
    outcome_.target.clear();
    return outcome_;
}

config::Outcome ImportRun::Finish() {
    // An answer that left out one of several sources did not stop the import.
    if (outcome_.status == Status::StoppedByUser && outcome_.features > 0) outcome_.status = Status::Failed;
    if (outcome_.features == 0 && util::FileSize(outcome_.target) > 0) return SaveNothing();
    sink_.Commit();
    outcome_.layers = sink_.Drawing().layerCount() - 1;  // without "0", which every drawing has
    run_.Ui().Settle(1.0);
    return outcome_;
}

}  // namespace vexlator::importer
