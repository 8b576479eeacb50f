// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::startup {

/// Thrown in a thread whose work is cancelled. No std::exception: conversions must not catch it.
struct Cancelled {};

/// Hands calls over from threads to the one that serves the desk.
class Desk {
public:
    /// Has `call` made by the serving thread, and waits for it. @throws Cancelled when the desk is closed
    void Call(const std::function<void()>& call);
    /// Makes the calls that come in the next seconds; returns after the first ones.
    void Serve(double seconds);
    /// Who calls, or goes on, is cancelled from now on.
    void Close();
    bool IsClosed() const { return isClosed_.load(std::memory_order_relaxed); }

private:
    struct Waiting {
        const std::function<void()>* call;
        bool isMade = false;
    };
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Waiting*> waiting_;
    std::atomic<bool> isClosed_ = false;
};

/// What a conversion in a thread talks to: keeps messages for later, hands questions over at once. Without
/// a desk it works in the person's thread: everything goes to the person at once.
class RowInterface : public ui::UserInterface {
public:
    RowInterface(Desk* desk, ui::UserInterface& person) : desk_(desk), person_(person) {}

    void ShowMessage(std::string_view text) override { Say({true, std::string(text)}); }
    bool AskYesNo(std::string_view text) override;
    void Report(std::string_view line) override { Say({false, std::string(line)}); }
    std::unique_ptr<ui::FormView> ShowForm(std::string_view name) override;
    void Settle(double seconds) override;
    void Beep() override {}

    /// Tells the person what was said.
    void TellAll();
    /// The last message, or the last line when there was none; "" without either.
    std::string LastSaid() const;

private:
    struct Said {
        bool isMessage;
        std::string text;
    };
    void Say(Said said);

    Desk* desk_;
    ui::UserInterface& person_;
    std::vector<Said> said_;
    std::size_t told_ = 0;  ///< how many of them
};

/// Does `count` pieces of work in threads, `atOnce` at a time, begun in order. `serve` is called by this
/// thread ten times a second until all are done; what it throws cancels them and is thrown on.
/// `work` throws nothing but Cancelled and platform::Stopped.
void WorkAtOnce(Desk& desk, std::size_t count, unsigned atOnce, const std::function<void(std::size_t)>& work,
                const std::function<void()>& serve);

}  // namespace vexlator::startup
