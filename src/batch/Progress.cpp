// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/Progress.h"

#include "platform/Terminal.h"
#include "util/Numbers.h"

#include <cmath>
#include <cstdio>

namespace vexlator::batch {

namespace {

using namespace std::chrono_literals;

constexpr auto betweenShows = 200ms;
constexpr auto beforeFirstLine = 10s;
constexpr auto betweenLines = 60s;

}  // namespace

void Tell(const std::string& line) {
    std::fputs((line + "\n").c_str(), stderr);
}

std::size_t Totals::Ended() const {
    std::size_t sum = 0;
    for (const auto& [status, count] : ended) sum += count;
    return sum;
}

Progress::Progress() : line_(stderr), isTerminal_(platform::IsTerminal(stderr)) {
    begin_ = std::chrono::steady_clock::now();
    next_ = begin_ + (isTerminal_ ? betweenShows : beforeFirstLine);
}

void Progress::Show(const Totals& totals) {
    Time now = std::chrono::steady_clock::now();
    if (now < next_) return;
    next_ = now + (isTerminal_ ? betweenShows : betweenLines);
    std::string text = Text(totals);
    if (isTerminal_)
        line_.Show(text);
    else
        std::fputs((text + "\n").c_str(), stderr);
}

double Progress::Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin_).count();
}

std::string Progress::Text(const Totals& totals) const {
    std::size_t ended = totals.Ended(), done = totals.doneBefore + totals.Count(Status::Done);
    std::size_t failed = ended - totals.Count(Status::Done);
    std::string text = util::GroupedCount(done) + " of " + util::GroupedCount(totals.commands) + " done";
    if (failed > 0) text += ", " + util::GroupedCount(failed) + " failed";
    double rate = static_cast<double>(ended) / Seconds();
    if (ended == 0) return text;
    double left = static_cast<double>(totals.commands - totals.doneBefore - ended) / rate;
    return text + ", " +
           (rate < 10 ? util::FormatFixed(rate, 1) : util::GroupedCount(static_cast<std::uint64_t>(rate))) +
           " a second, " + DurationText(left) + " left";
}

std::string DurationText(double seconds) {
    auto whole = static_cast<std::int64_t>(std::ceil(seconds));
    if (whole < 120) return std::to_string(whole) + " s";
    std::int64_t minutes = whole / 60;
    if (minutes < 120) return std::to_string(minutes) + " min";
    return std::to_string(minutes / 60) + " h " + std::to_string(minutes % 60) + " min";
}

}  // namespace vexlator::batch
