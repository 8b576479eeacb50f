// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/application/Conversation.h"
#include "desktop/application/Worker.h"
#include "startup/go/GoFlow.h"

#include <functional>
#include <memory>
#include <optional>

namespace vexlator::desktop {

/// The Go of a window: the flow in a worker, its rows and its end told in the window's thread.
class GoRun {
public:
    struct Told {
        std::function<void(const startup::RowResult&)> row;
        std::function<void(startup::ExitStatus)> ended;
    };

    /// The installation outlives it.
    GoRun(config::Installation& installation, Listener listener, Told told);

    void Go(const startup::SelectionSettings& choices);
    /// What has not been done by Go().
    void Again();
    void Cancel() { conversation_.Cancel(); }
    bool IsRunning() const { return isRunning_; }
    const Conversation& Talk() const { return conversation_; }

private:
    void Start(std::function<startup::ExitStatus()> work);
    startup::ExitStatus Perform(const std::function<startup::ExitStatus()>& work);
    void TellRow(std::size_t row);

    Told told_;
    Conversation conversation_;
    config::Run run_;
    startup::GoFlow flow_;
    bool isRunning_ = false;
    std::unique_ptr<Worker> worker_;  ///< goes first: it uses all above
};

}  // namespace vexlator::desktop
