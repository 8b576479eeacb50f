// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/go/Crew.h"

#include "platform/Signals.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace vexlator::startup {

namespace {

/// Shows nothing; a cancel arrives here.
class RowView : public ui::FormView {
public:
    explicit RowView(const Desk& desk) : desk_(desk) {}
    void SetCaption(std::string_view) override {}
    void SetLabel(std::string_view) override {}
    void Progress(std::uint64_t, std::uint64_t) override {
        if (desk_.IsClosed()) throw Cancelled();
    }

private:
    const Desk& desk_;
};

/// Cancels the work of threads that still go on.
struct ClosedAtEnd {
    Desk& desk;
    ~ClosedAtEnd() { desk.Close(); }
};

}  // namespace

void Desk::Call(const std::function<void()>& call) {
    std::unique_lock lock(mutex_);
    Waiting mine{&call};
    waiting_.push_back(&mine);
    changed_.notify_all();
    changed_.wait(lock, [&] { return mine.isMade || IsClosed(); });
    if (mine.isMade) return;
    std::erase(waiting_, &mine);
    throw Cancelled();
}

void Desk::Serve(double seconds) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, std::chrono::duration<double>(seconds), [&] { return !waiting_.empty(); });
    while (!waiting_.empty()) {
        // Its owner waits, and the lock is held: nobody closes the desk meanwhile.
        (*waiting_.front()->call)();
        waiting_.front()->isMade = true;
        waiting_.pop_front();
    }
    changed_.notify_all();
}

void Desk::Close() {
    std::unique_lock lock(mutex_);
    isClosed_ = true;
    changed_.notify_all();
}

bool RowInterface::AskYesNo(std::string_view text) {
    if (!desk_) return person_.AskYesNo(text);
    bool answer = false;
    desk_->Call([&] {
        TellAll();
        answer = person_.AskYesNo(text);
    });
    return answer;
}

std::unique_ptr<ui::FormView> RowInterface::ShowForm(std::string_view name) {
    if (!desk_) return person_.ShowForm(name);
    return std::make_unique<RowView>(*desk_);
}

void RowInterface::Settle(double seconds) {
    if (!desk_) return person_.Settle(seconds);
    if (desk_->IsClosed()) throw Cancelled();
}

void RowInterface::Say(Said said) {
    said_.push_back(std::move(said));
    if (!desk_) TellAll();
}

void RowInterface::TellAll() {
    for (; told_ < said_.size(); ++told_)
        if (said_[told_].isMessage)
            person_.ShowMessage(said_[told_].text);
        else
            person_.Report(said_[told_].text);
}

std::string RowInterface::LastSaid() const {
    auto message =
        std::find_if(said_.rbegin(), said_.rend(), [](const Said& said) { return said.isMessage; });
    if (message != said_.rend()) return message->text;
    return said_.empty() ? "" : said_.back().text;
}

void WorkAtOnce(Desk& desk, std::size_t count, unsigned atOnce, const std::function<void(std::size_t)>& work,
                const std::function<void()>& serve) {
    std::atomic<std::size_t> next = 0, ended = 0;
    auto workOn = [&] {
        for (std::size_t i = next++; i < count && !desk.IsClosed(); i = next++) {
            try {
                work(i);
            } catch (const Cancelled&) {
                return;
            } catch (const platform::Stopped&) {
                return;  // the serving thread stops too
            }
            ++ended;
        }
    };
    std::vector<std::jthread> threads;
    ClosedAtEnd closed{desk};  // before the threads are waited for
    for (std::size_t i = 0; i < std::min<std::size_t>(atOnce, count); ++i) threads.emplace_back(workOn);
    while (ended < count) {
        desk.Serve(0.1);
        platform::ThrowIfStopped();
        serve();
    }
}

}  // namespace vexlator::startup
