// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "ui/terminal/ProgressLine.h"

#include "platform/CodePages.h"
#include "platform/Signals.h"
#include "platform/Terminal.h"
#include "ui/terminal/PlainText.h"
#include "util/Numbers.h"

namespace vexlator::ui {

namespace {

using namespace std::chrono_literals;

constexpr std::string_view eraseLine = "\r\x1B[K";
constexpr auto betweenLines = 100ms;
constexpr auto betweenLooks = 20ms;
/// Small enough to show the progress of a conversion that becomes slow.
constexpr std::uint32_t mostCallsPerLook = 1024;

void Put(std::FILE* stream, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
}

}  // namespace

void ProgressLine::Show(std::string_view text) {
    // A wrapped line could not be erased.
    std::size_t most = platform::TerminalWidth(terminal_) - 1;
    Put(terminal_, std::string(eraseLine).append(platform::CutUtf8(text, most)));
    shown_ = true;
}

void ProgressLine::Erase() {
    if (shown_) Put(terminal_, eraseLine);
    shown_ = false;
}

void ProgressView::SetLabel(std::string_view text) {
    label_ = OneLine(text);
    firstTime_ = {};
    callsPerLook_ = callsToLook_ = 1;
}

void ProgressView::Look(std::uint64_t done, std::uint64_t total) {
    platform::ThrowIfStopped();
    Time now = std::chrono::steady_clock::now();
    if (now - lastLook_ > betweenLooks)
        callsPerLook_ = callsPerLook_ / 2 + 1;
    else if (callsPerLook_ < mostCallsPerLook)
        callsPerLook_ *= 2;
    callsToLook_ = callsPerLook_;
    lastLook_ = now;
    if (firstTime_ == Time() || done < firstDone_) {
        firstTime_ = now;
        firstDone_ = done;
    }
    if (now - lastShown_ < betweenLines) return;
    lastShown_ = now;
    line_.Show(Text(done, total, now));
}

std::string ProgressView::Text(std::uint64_t done, std::uint64_t total, Time now) const {
    std::string text = label_ + "  " + util::GroupedCount(done);
    if (total > 0) text += " of " + util::GroupedCount(total);
    double seconds = std::chrono::duration<double>(now - firstTime_).count();
    if (seconds > 0)
        text +=
            "  " + util::GroupedCount(static_cast<std::uint64_t>(double(done - firstDone_) / seconds)) + "/s";
    return text;
}

}  // namespace vexlator::ui
