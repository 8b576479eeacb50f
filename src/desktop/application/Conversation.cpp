// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/application/Conversation.h"

#include "desktop/application/Texts.h"
#include "platform/Signals.h"

#include <QApplication>
#include <QThread>
#include <optional>
#include <utility>

namespace vexlator::desktop {

/// Cheap enough for every feature: two stores and a look at the flags.
class Conversation::Form : public ui::FormView {
public:
    explicit Form(Conversation& conversation) : conversation_(conversation) {}

    void SetCaption(std::string_view text) override {
        std::lock_guard lock(conversation_.mutex_);
        conversation_.caption_ = text;
    }
    void SetLabel(std::string_view text) override {
        std::lock_guard lock(conversation_.mutex_);
        conversation_.label_ = text;
    }
    void Progress(std::uint64_t done, std::uint64_t total) override {
        conversation_.done_.store(done, std::memory_order_relaxed);
        conversation_.total_.store(total, std::memory_order_relaxed);
        conversation_.ThrowIfCancelled();
    }

private:
    Conversation& conversation_;
};

Conversation::Conversation(Listener listener) : listener_(std::move(listener)) {}

Conversation::~Conversation() {
    Abandon();
}

void Conversation::Cancel() {
    {
        std::lock_guard lock(mutex_);
        cancelled_ = true;
    }
    changed_.notify_all();
}

void Conversation::Reset() {
    std::lock_guard lock(mutex_);
    cancelled_ = abandoned_ = false;
    done_ = total_ = 0;
    caption_.clear();
    label_.clear();
}

Standing Conversation::Now() const {
    std::lock_guard lock(mutex_);
    return {.caption = caption_, .label = label_, .done = done_, .total = total_};
}

void Conversation::Abandon() {
    {
        std::lock_guard lock(mutex_);
        abandoned_ = cancelled_ = true;
    }
    changed_.notify_all();
}

void Conversation::ThrowIfCancelled() const {
    platform::ThrowIfStopped();
    if (cancelled_.load(std::memory_order_relaxed)) throw platform::Stopped();
}

void Conversation::Later(std::function<void()> action) {
    QMetaObject::invokeMethod(&window_, std::move(action), Qt::QueuedConnection);
}

bool Conversation::Ask(std::function<bool()> question) {
    if (QThread::currentThread() == window_.thread()) return question();
    auto answer = std::make_shared<std::optional<bool>>();
    Later([this, answer, question = std::move(question)] {
        bool given = question();
        std::lock_guard lock(mutex_);
        *answer = given;
        changed_.notify_all();
    });
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return answer->has_value() || abandoned_; });
    return answer->value_or(false);
}

void Conversation::ShowMessage(std::string_view text) {
    if (cancelled_) return;
    QString shown = Text(text);
    Ask([this, shown] {
        listener_.showMessage(shown);
        return true;
    });
}

bool Conversation::AskYesNo(std::string_view text) {
    ThrowIfCancelled();
    QString shown = Text(text);
    return Ask([this, shown] { return listener_.askYesNo(shown); });
}

void Conversation::Report(std::string_view line) {
    QString shown = Text(line);
    Later([this, shown] { listener_.report(shown); });
}

std::unique_ptr<ui::FormView> Conversation::ShowForm(std::string_view) {
    return std::make_unique<Form>(*this);
}

/// The window repaints whenever it likes: there is nothing to wait for.
void Conversation::Settle(double) {
    ThrowIfCancelled();
}

void Conversation::Beep() {
    Later([] { QApplication::beep(); });
}

}  // namespace vexlator::desktop
