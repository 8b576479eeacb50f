// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/SaveImport.h"

#include "platform/Paths.h"
#include "util/Files.h"

namespace vexlator::importer {

namespace {

using Status = config::Outcome::Status;

/// An answer that left out one of several sources did not stop the import.
Status StatusOf(const config::Outcome& outcome) {
    bool stoppedForOne = outcome.status == Status::StoppedByUser && outcome.features > 0;
    return stoppedForOne ? Status::Failed : outcome.status;
}

}  // namespace

config::Outcome SaveImport(config::Run& run, const drawing::Drawing& drawing, config::Outcome outcome,
                           const std::function<void()>& save) {
    outcome.status = StatusOf(outcome);
    if (outcome.features == 0 && util::FileSize(outcome.target) > 0) {
        run.Ui().Report(platform::NativePath(outcome.target) +
                        " is as it was: nothing was read that could replace it");
        if (outcome.status == Status::Done) outcome.status = Status::Failed;
        outcome.target.clear();
        return outcome;
    }
    save();
    outcome.layers = drawing.layerCount() - 1;  // without "0", which every drawing has
    run.Ui().Settle(1.0);
    return outcome;
}

}  // namespace vexlator::importer
