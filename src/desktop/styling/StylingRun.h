// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "desktop/application/Worker.h"

#include <functional>
#include <memory>

namespace vexlator::desktop {

/// Does one thing after the other in a worker, for a window that goes on meanwhile.
class StylingRun {
public:
    StylingRun(config::Installation& installation, Listener listener);

    bool IsRunning() const { return isRunning_; }
    /// Only while nothing runs. `work` may throw, which is told. `ended`, in the window's thread, hears
    /// whether it has done its work.
    void Start(std::function<void(config::Run&)> work, std::function<void(bool isDone)> ended);
    void Cancel() { conversation_.Cancel(); }
    Conversation& Talk() { return conversation_; }

private:
    bool Perform(const std::function<void(config::Run&)>& work);

    config::Installation& installation_;
    Conversation conversation_;
    bool isRunning_ = false;
    std::unique_ptr<Worker> worker_;
};

}  // namespace vexlator::desktop
