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

/// Number of commands that run at the same time.
unsigned Jobs(const Options& options);

/// Whether an entry of the journal says that the command need not run again: it was done, its sources are
/// unchanged, and its output exists.
bool IsStillDone(const Entry& entry, const CommandPaths& paths);

/// Whether an entry says that the command began to add to a drawing that has changed since: it was killed
/// between its end and its line.
bool HasEndedUnseen(const Entry& entry, const CommandPaths& paths);

/// The entry of such a command as that of one that is done.
Entry EndedUnseen(Entry entry, const CommandPaths& paths);

/// What runs the commands of a list and keeps what became of them in the journal.
class CommandRunner {
public:
    virtual ~CommandRunner() = default;
    /// Runs what has to be run. @throws platform::Stopped once the commands that ran have been stopped and
    /// their lines are in the journal; platform::WriteError when the journal cannot be written
    virtual void Run() = 0;
    const Totals& Result() const { return totals_; }
    double Seconds() const { return progress_.Seconds(); }

protected:
    /// Prints the lines of entries, if the run or their command asks for it.
    static void Print(const std::vector<Entry>& entries, const Options& options);

    Totals totals_;
    Progress progress_;
};

/// Runs commands side by side, each in one of a few processes. Those of one drawing run one after the other,
/// in the order of the list.
class Night : public CommandRunner {
public:
    Night(const Options& options, const Perform& perform, const startup::Conversions& conversions,
          const std::vector<std::string>& commands, Journal& journal);

    void Run() override;

private:
    using Time = std::chrono::steady_clock::time_point;
    struct Running {
        std::string drawing;
        Entry entry;
        platform::Task task;
        Time begin;
        Time asked = {};  ///< time of the request to stop
    };

    struct Next {
        std::size_t index = 0;
        std::optional<std::string> drawing;  ///< reserved for this command
    };

    void RunAll();
    /// Starts commands until enough of them are running.
    void Fill();
    std::optional<Next> TakeNext();
    void Begin(const std::string& command, CommandPaths paths);
    void KeepAsDone(Entry entry, const CommandPaths& paths);
    /// The process of the command.
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
    platform::Task::Work work_;  ///< the work of the processes for a command
    std::list<Running> running_;
    std::vector<platform::Task> idle_;  ///< processes that wait for a command
    std::deque<Next> ready_;            ///< commands whose drawing is no longer in use
    /// The drawings in use, each with its waiting commands.
    std::unordered_map<std::string, std::deque<std::size_t>> busy_;
    std::vector<Entry> ended_;  ///< entries that are not in the journal yet
    bool isCancelled_ = false;
};

}  // namespace vexlator::batch
