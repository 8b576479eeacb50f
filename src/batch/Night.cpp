// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/Night.h"

#include "platform/Paths.h"
#include "platform/Signals.h"

#include <algorithm>
#include <cstdio>

namespace vexlator::batch {

namespace {

using Clock = std::chrono::steady_clock;
using Duration = std::chrono::duration<double>;

/// Time for a stopped command to remove its files.
constexpr Duration grace{3};

platform::Task::Result Report(const CommandResult& result) {
    Entry entry;
    entry.TakeOutcome(result.outcome, result.losses);
    return {static_cast<int>(result.status), entry.ToJson()};
}

}  // namespace

unsigned Jobs(const Options& options) {
    return options.jobs > 0 ? options.jobs : platform::CountProcessors();
}

bool IsStillDone(const Entry& entry, const CommandPaths& paths) {
    auto isThere = [](const std::string& path) { return !platform::FindExisting(path).empty(); };
    return entry.status == Status::Done && entry.sources == paths.sources &&
           std::all_of(entry.outputs.begin(), entry.outputs.end(), isThere);
}

bool HasEndedUnseen(const Entry& entry, const CommandPaths& paths) {
    return entry.status == Status::Begun && entry.sources != SourceOf(platform::FindExisting(paths.addedTo));
}

Entry EndedUnseen(Entry entry, const CommandPaths& paths) {
    entry.status = Status::Done;
    entry.end = TimeText(Now());
    entry.sources = paths.sources;
    entry.outputs = {paths.addedTo};
    entry.messages = {"it had ended when the batch was stopped; its messages are lost"};
    return entry;
}

void CommandRunner::Print(const std::vector<Entry>& entries, const Options& options) {
    for (const Entry& entry : entries)
        if (entry.status != Status::Begun && (options.json || PrintsItsEntry(entry)))
            std::puts(entry.ToJson().c_str());
    std::fflush(stdout);
}

Night::Night(const Options& options, const Perform& perform, const startup::Conversions& conversions,
             const std::vector<std::string>& commands, Journal& journal)
    : options_(options),
      perform_(perform),
      conversions_(conversions),
      commands_(commands),
      journal_(journal),
      jobs_(Jobs(options)),
      work_([this](const std::string& command) { return Report(perform_(command)); }) {
    totals_.commands = commands.size();
}

void Night::Run() {
    try {
        RunAll();
    } catch (const platform::Stopped&) {
        Cancel();
        progress_.Clear();
        throw;
    }
    progress_.Clear();
}

void Night::RunAll() {
    Fill();
    while (!running_.empty()) {
        Wait();
        TakeEnded();
        // The disk syncs the journal while the next commands run.
        Fill();
        Keep();
        StopOverdue();
        progress_.Show(totals_);
    }
    Keep();
}

void Night::Fill() {
    while (running_.size() < jobs_) {
        std::optional<Next> next = TakeNext();
        if (!next) return;
        platform::ThrowIfStopped();
        const std::string& command = commands_[next->index];
        CommandPaths paths = PathsOf(conversions_, command);
        if (next->drawing) paths.drawing = *next->drawing;
        auto [place, isFree] = busy_.try_emplace(paths.drawing);
        if (!isFree && !next->drawing) {
            place->second.push_back(next->index);
            continue;
        }
        std::optional<Entry> last = options_.resume ? journal_.Last(command) : std::nullopt;
        if (last && IsStillDone(*last, paths)) {
            ++totals_.doneBefore;
            Release(paths.drawing);
            progress_.Show(totals_);
        } else if (last && HasEndedUnseen(*last, paths)) {
            KeepAsDone(std::move(*last), paths);
            Release(paths.drawing);
        } else {
            Begin(command, std::move(paths));
        }
    }
}

std::optional<Night::Next> Night::TakeNext() {
    if (ready_.empty()) {
        if (next_ == commands_.size()) return std::nullopt;
        return Next{next_++, std::nullopt};
    }
    Next next = std::move(ready_.front());
    ready_.pop_front();
    return next;
}

void Night::Begin(const std::string& command, CommandPaths paths) {
    Entry entry;
    entry.command = command;
    entry.folder = CurrentFolder();
    entry.start = TimeText(Now());
    if (!paths.addedTo.empty()) {
        entry.status = Status::Begun;
        entry.sources = SourceOf(platform::FindExisting(paths.addedTo));
        journal_.Append({entry});
    }
    entry.sources = std::move(paths.sources);
    running_.push_back({std::move(paths.drawing), std::move(entry), TaskFor(command), Clock::now()});
}

void Night::KeepAsDone(Entry entry, const CommandPaths& paths) {
    ++totals_.ended[Status::Done];
    ended_.push_back(EndedUnseen(std::move(entry), paths));
}

platform::Task Night::TaskFor(const std::string& command) {
    while (!idle_.empty()) {
        platform::Task task = std::move(idle_.back());
        idle_.pop_back();
        if (task.Give(command)) return task;
    }
    platform::Task task(work_);
    if (!task.Give(command)) throw std::runtime_error("a process that was just started has ended");
    return task;
}

void Night::Release(const std::string& drawing) {
    auto place = busy_.find(drawing);
    std::deque<std::size_t>& waiting = place->second;
    if (waiting.empty()) {
        busy_.erase(place);
    } else {
        ready_.push_back({waiting.front(), drawing});
        waiting.pop_front();
    }
}

void Night::Wait() const {
    std::vector<const platform::Task*> tasks;
    for (const Running& running : running_) tasks.push_back(&running.task);
    platform::WaitForTasks(tasks, betweenLooks);
    if (!isCancelled_) platform::ThrowIfStopped();
}

void Night::TakeEnded() {
    for (auto it = running_.begin(); it != running_.end();) {
        auto running = it++;
        if (!running->task.Look()) continue;
        ended_.push_back(Finish(*running));
        ++totals_.ended[ended_.back().status];
        if (!ended_.back().losses.empty()) ++totals_.withLosses;
        Release(running->drawing);
        if (running->task.CanGoOn()) idle_.push_back(std::move(running->task));
        running_.erase(running);
    }
}

Entry Night::Finish(Running& running) const {
    const platform::Task& task = running.task;
    Entry entry = std::move(running.entry);
    if (auto report = Entry::FromJson(task.Report())) {
        entry.layers = report->layers;
        entry.features = report->features;
        entry.outputs = std::move(report->outputs);
        entry.losses = std::move(report->losses);
    }
    entry.messages = MessagesOf(task.Output(), entry.losses);
    entry.end = TimeText(Now());
    entry.seconds = Duration(Clock::now() - running.begin).count();
    entry.exit = task.Signal() > 0 ? 128 + task.Signal() : task.Status();
    if (entry.exit == 0)
        entry.status = Status::Done;
    else if (running.asked != Time())
        entry.status = isCancelled_ ? Status::Interrupted : Status::TimedOut;
    else
        entry.status = task.Signal() > 0 ? Status::Crashed : Status::Failed;
    return entry;
}

void Night::Keep() {
    if (ended_.empty()) return;
    journal_.Append(ended_);
    Print(ended_, options_);
    ended_.clear();
}

void Night::StopOverdue() {
    Time now = Clock::now();
    for (Running& running : running_) {
        if (running.asked != Time()) {
            if (now - running.asked > grace) running.task.Kill();
        } else if (options_.timeout > 0 && Duration(now - running.begin).count() > options_.timeout) {
            running.task.Stop();
            running.asked = now;
        }
    }
}

void Night::Cancel() {
    isCancelled_ = true;
    for (Running& running : running_) {
        running.task.Stop();
        running.asked = Clock::now();
    }
    while (!running_.empty()) {
        Wait();
        TakeEnded();
        StopOverdue();
    }
    Keep();
}

}  // namespace vexlator::batch
