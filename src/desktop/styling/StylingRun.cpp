// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/styling/StylingRun.h"

#include "platform/Signals.h"

#include <utility>

namespace vexlator::desktop {

StylingRun::StylingRun(config::Installation& installation, Listener listener)
    : installation_(installation), conversation_(std::move(listener)) {}

void StylingRun::Start(std::function<void(config::Run&)> work, std::function<void(bool isDone)> ended) {
    worker_.reset();
    isRunning_ = true;
    auto isDone = std::make_shared<bool>(false);
    worker_ = std::make_unique<Worker>(
        conversation_, [this, isDone, work = std::move(work)] { *isDone = Perform(work); },
        [this, isDone, ended = std::move(ended)] {
            // Once the worker has returned: what follows may be the next work.
            conversation_.Later([this, isDone, ended] {
                isRunning_ = false;
                ended(*isDone);
            });
        });
}

/// What the work throws ends here: it is shown to the person.
bool StylingRun::Perform(const std::function<void(config::Run&)>& work) {
    try {
        config::Run run(installation_, conversation_);
        try {
            work(run);
            return true;
        } catch (const platform::Stopped&) {
            return false;
        } catch (const std::bad_alloc&) {
            run.Ui().ShowMessage("Not enough memory");
        } catch (const std::exception& error) {
            run.Ui().ShowMessage(error.what());
        }
    } catch (const platform::Stopped&) {  // while it was told
        return false;
    }
    return false;
}

}  // namespace vexlator::desktop
