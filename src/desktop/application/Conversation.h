// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"

#include <QObject>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace vexlator::desktop {

/// Who answers a conversion in the window's thread.
struct Listener {
    std::function<void(const QString&)> showMessage;
    std::function<bool(const QString&)> askYesNo;
    std::function<void(const QString&)> report;
};

/// What a conversion last said of itself.
struct Standing {
    std::string caption, label;
    std::uint64_t done = 0, total = 0;  ///< features; total 0 when it is not known
};

/// The user interface of conversions in a worker thread. Messages and questions wait until the person in
/// front of the window has answered; progress is only noted, for the window to look at when it has time. A
/// cancel is thrown where the conversion next tells its progress, asks or waits.
class Conversation : public ui::UserInterface {
public:
    /// Made, and destroyed, in the window's thread.
    explicit Conversation(Listener listener);
    ~Conversation() override;
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    // In the window's thread.
    void Cancel();
    bool IsCancelled() const { return cancelled_; }
    /// Before the next conversion.
    void Reset();
    Standing Now() const;
    /// Nobody answers any more: what waits for an answer gets none, and is cancelled.
    void Abandon();

    // In the worker's thread. @throws platform::Stopped once it is cancelled
    void ShowMessage(std::string_view text) override;
    bool AskYesNo(std::string_view text) override;
    void Report(std::string_view line) override;
    std::unique_ptr<ui::FormView> ShowForm(std::string_view name) override;
    void Settle(double seconds) override;
    void Beep() override;
    /// Does something in the window's thread, some time soon.
    void Later(std::function<void()> action);
    void ThrowIfCancelled() const;

private:
    class Form;

    /// Asks in the window's thread and waits for the answer; asks at once when it is called there.
    bool Ask(std::function<bool()> question);

    Listener listener_;
    QObject window_;  ///< lives in the window's thread: what is sent to it runs there
    std::atomic<bool> cancelled_ = false;
    std::atomic<std::uint64_t> done_ = 0, total_ = 0;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::string caption_, label_;
    bool abandoned_ = false;
};

}  // namespace vexlator::desktop
