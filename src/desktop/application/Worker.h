// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/application/Conversation.h"

#include <functional>
#include <thread>

namespace vexlator::desktop {

/// One piece of work in a thread of its own. Made and destroyed in the window's thread.
class Worker {
public:
    /// `work` throws nothing. `ended` is called in the window's thread when it is over, unless the worker has
    /// gone before; it does not destroy the worker. The conversation outlives the worker.
    Worker(Conversation& conversation, std::function<void()> work, std::function<void()> ended);
    /// Cancels what still runs and waits for it: at most until it next tells its progress.
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

private:
    Conversation& conversation_;
    std::thread thread_;
    QObject window_;  ///< in the window's thread
};

}  // namespace vexlator::desktop
