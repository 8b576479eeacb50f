// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Entry.h"
#include "ui/terminal/ProgressLine.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <string>

namespace vexlator::batch {

/// Number of commands by the way they ended.
struct Totals {
    std::size_t commands = 0;
    std::size_t doneBefore = 0;  ///< done by an earlier run that this run resumes
    std::map<Status, std::size_t> ended;
    std::size_t withLosses = 0;

    std::size_t Count(Status status) const {
        auto found = ended.find(status);
        return found == ended.end() ? 0 : found->second;
    }
    std::size_t Ended() const;
    std::size_t NotDone() const { return commands - doneBefore - Count(Status::Done); }
};

/// Seconds between looks at what runs.
constexpr double betweenLooks = 0.25;

/// Writes a line for people, to standard error.
void Tell(const std::string& line);

/// Shows the progress of a batch run: one rewritten line of a terminal, else a plain line from time to time.
class Progress {
public:
    Progress();
    /// Cheap enough for every command.
    void Show(const Totals& totals);
    /// Removes the line.
    void Clear() { line_.Erase(); }
    double Seconds() const;

private:
    using Time = std::chrono::steady_clock::time_point;
    std::string Text(const Totals& totals) const;

    ui::ProgressLine line_;
    bool isTerminal_;
    Time begin_, next_;
};

/// As in "45 s", "12 min", "3 h 20 min".
std::string DurationText(double seconds);

}  // namespace vexlator::batch
