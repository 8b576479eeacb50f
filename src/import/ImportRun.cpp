// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/ImportRun.h"

#include "util/Counted.h"
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

void ImportRun::LeaveRest(const platform::ReadError& error, std::uint64_t taken) {
    std::string behind = taken > 0 ? " from there on, behind " + util::Counted(taken, "feature") : "";
    run_.Ui().ShowMessage(error.what() + ("; left out" + behind));
    sink_.DropUnfinished();
    LeaveOut();
    damaged_ = true;
    takenOfDamaged_ += taken;
}

config::Outcome ImportRun::SaveNothing() {
    bool isThere = util::FileSize(outcome_.target) > 0;
    run_.Ui().Report(platform::NativePath(outcome_.target) +
                     (isThere ? " is unchanged: nothing was read that could replace it"
                              : " is not made: nothing was read that could make it"));
    LeaveOut();
    outcome_.target.clear();
    return outcome_;
}

config::Outcome ImportRun::Finish() {
    // If an answer left out one of several sources, the import was not stopped.
    if (outcome_.status == Status::StoppedByUser && outcome_.features > 0) outcome_.status = Status::Failed;
    bool isComplete = outcome_.features > takenOfDamaged_;
    if (!isComplete && (damaged_ || util::FileSize(outcome_.target) > 0)) return SaveNothing();
    sink_.Commit();
    outcome_.layers = sink_.Drawing().layerCount() - 1;  // without layer "0", which every drawing has
    run_.Ui().Settle(1.0);
    return outcome_;
}

}  // namespace vexlator::importer
