// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Batch.h"
#include "batch/CommandList.h"
#include "batch/CommandPaths.h"
#include "batch/Journal.h"
#include "batch/Progress.h"
#include "platform/Task.h"

#include <chrono>
#include <deque>
#include <list>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace vexlator::batch {

/// How many commands run at a time.
unsigned Jobs(const Options& options);

/// Whether an entry of the journal says that the command need not run again: it was done, its sources are
/// what they were, and what it made is there.
bool IsStillDone(const Entry& entry, const CommandPaths& paths);

/// Whether an entry says that the command began to add to a drawing, which has changed since: it was killed
/// between its end and its line.
bool HasEndedUnseen(const Entry& entry, const CommandPaths& paths);

/// Runs commands side by side, each in one of a few processes. Those of one drawing run one after the other,
/// in the order of the list.
class Night {
public:
    Night(const Options& options, const Perform& perform, const startup::Conversions& conversions,
          const std::vector<std::string>& commands, Journal& journal);

    /// Runs what has to be run. @throws platform::Stopped once the commands that ran have been stopped and
    /// their lines are in the journal; platform::WriteError when the journal cannot be written
    void Run();
    const Totals& Result() const { return totals_; }
    double Seconds() const { return progress_.Seconds(); }

private:
    using Time = std::chrono::steady_clock::time_point;
    struct Running {
        std::string drawing;
        Entry entry;
        platform::Task task;
        Time begin;
        Time asked = {};  ///< when it was asked to stop
    };

    struct Next {
        std::size_t index = 0;
        std::optional<std::string> drawing;  ///< when it is kept for this command
    };

    void RunAll();
    /// Starts commands until enough of them run.
    void Fill();
    std::optional<Next> TakeNext();
    void Begin(const std::string& command, CommandPaths paths);
    void KeepAsDone(Entry entry, const CommandPaths& paths);
    /// A process that is at the command.
    platform::Task TaskFor(const std::string& command);
    /// Lets the next command of the drawing run.
    void Release(const std::string& drawing);
    void Wait() const;
    void TakeEnded();
    void StopOverdue();
    void Cancel();
    void Keep();
    Entry Finish(Running& running) const;

    const Options& options_;
    const Perform& perform_;
    const startup::Conversions& conversions_;
    const std::vector<std::string>& commands_;
    Journal& journal_;
    unsigned jobs_;
    std::size_t next_ = 0;
    platform::Task::Work work_;  ///< what the processes do with a command
    std::list<Running> running_;
    std::vector<platform::Task> idle_;  ///< processes that wait for a command
    std::deque<Next> ready_;            ///< commands whose drawing has just become free for them
    /// The drawings that are being worked on, each with the commands that wait for it.
    std::unordered_map<std::string, std::deque<std::size_t>> busy_;
    std::vector<Entry> ended_;  ///< not in the journal yet
    bool isCancelled_ = false;
    Totals totals_;
    Progress progress_;
};

}  // namespace vexlator::batch
