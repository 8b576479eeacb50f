// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/selection/GoRun.h"

#include "platform/Signals.h"

#include <exception>
#include <utility>

namespace vexlator::desktop {

using startup::ExitStatus;

GoRun::GoRun(config::Installation& installation, Listener listener, Told told)
    : told_(std::move(told)),
      conversation_(std::move(listener)),
      run_(installation, conversation_),
      flow_(run_, {.rowChanged = [this](std::size_t row) { TellRow(row); }}) {}

void GoRun::Go(const startup::SelectionSettings& choices) {
    Start([this, choices] { return flow_.Go(choices); });
}

void GoRun::Again() {
    Start([this] { return flow_.RunAgain(); });
}

void GoRun::Start(std::function<ExitStatus()> work) {
    worker_.reset();
    isRunning_ = true;
    auto status = std::make_shared<ExitStatus>(ExitStatus::Failed);
    worker_ = std::make_unique<Worker>(
        conversation_, [this, status, work = std::move(work)] { *status = Perform(work); },
        [this, status] {
            isRunning_ = false;
            told_.ended(*status);
        });
}

/// What a conversion throws ends here: it is shown to the person, unless that one has cancelled meanwhile.
ExitStatus GoRun::Perform(const std::function<ExitStatus()>& work) {
    try {
        try {
            return work();
        } catch (const std::bad_alloc&) {
            run_.Ui().ShowMessage("Not enough memory");
        } catch (const std::exception& error) {
            run_.Ui().ShowMessage(error.what());
        }
        return ExitStatus::Failed;
    } catch (const platform::Stopped&) {
        return ExitStatus::Interrupted;
    }
}

/// In the worker's thread.
void GoRun::TellRow(std::size_t row) {
    const auto& rows = flow_.Rows();
    if (row < rows.size()) {
        conversation_.Later([this, result = rows[row]] { told_.row(result); });
        return;
    }
    for (const startup::RowResult& result : rows) conversation_.Later([this, result] { told_.row(result); });
}

}  // namespace vexlator::desktop
