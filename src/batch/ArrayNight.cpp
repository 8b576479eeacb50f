// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/ArrayNight.h"

#include "batch/Progress.h"
#include "platform/Paths.h"
#include "platform/Process.h"
#include "platform/Signals.h"
#include "util/Counted.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace vexlator::batch {

namespace {

using Clock = std::chrono::steady_clock;
using Duration = std::chrono::duration<double>;

constexpr unsigned usualSlices = 16;
/// Slurm's controller serves everybody; the journals tell sooner how far the tasks are.
constexpr Duration betweenQuestions{5}, whileCancelled{0.5};
/// What tasks that were cancelled may take to end, Slurm's own time to kill them included.
constexpr Duration cancelling{90};

/// As one word of a shell.
std::string ShellWord(std::string_view text) {
    return "'" + util::ReplaceAll(text, "'", "'\\''") + "'";
}

}  // namespace

ArrayNight::ArrayNight(const Options& options, const startup::Conversions& conversions,
                       const std::vector<std::string>& commands, Journal& journal)
    : options_(options),
      conversions_(conversions),
      commands_(commands),
      journal_(journal),
      slices_(journal.Name()) {
    totals_.commands = commands.size();
}

void ArrayNight::Run() {
    Lists lists = Deal();
    if (lists.empty()) return;
    Submit(lists);
    progress_.Clear();
    TellLost(lists);
    if (totals_.Ended() + totals_.doneBefore >= totals_.commands) slices_.Remove();
}

void ArrayNight::FinishEarlier() {
    if (!slices_.AreThere()) return;
    std::string name = slices_.ArrayName();
    JobArray array(name);
    JobArray::State state = name.empty() ? JobArray::State::Ended : array.Look();
    if (state == JobArray::State::Unknown)
        throw SlurmError("squeue does not answer whether the array of an earlier run, " + name +
                         ", is still at work; when it is not, remove " + slices_.Folder());
    if (state == JobArray::State::Alive && !options_.resume)
        throw SlurmError("the array of an earlier run, " + name +
                         ", is still at work; --resume waits for it");
    if (options_.resume) TakeOver(array, state);
    slices_.Remove();
}

void ArrayNight::TakeOver(const JobArray& array, JobArray::State state) {
    slices_.Find();
    if (state == JobArray::State::Alive) {
        Tell("waiting for the array of an earlier run");
        Await(array, std::numeric_limits<std::size_t>::max());
    }
    TakeNew();
    ended_.clear();
    totals_ = {};
    totals_.commands = commands_.size();
}

ArrayNight::Lists ArrayNight::Deal() {
    std::unordered_map<std::string, std::size_t> sliceOf;  // by drawing
    std::size_t most = options_.slices > 0 ? options_.slices : usualSlices;
    Lists lists;
    for (const std::string& command : commands_) {
        platform::ThrowIfStopped();
        CommandPaths paths = PathsOf(conversions_, command);
        std::optional<Entry> last = options_.resume ? journal_.Last(command) : std::nullopt;
        auto known = sliceOf.find(paths.drawing);
        // What runs before it changes its drawing.
        bool mustRun = known != sliceOf.end();
        if (!mustRun && last && IsStillDone(*last, paths)) {
            ++totals_.doneBefore;
        } else if (last && HasEndedUnseen(*last, paths)) {
            KeepAsDone(*last, paths);
        } else {
            std::size_t slice = mustRun ? known->second : sliceOf.size() % most;
            sliceOf.emplace(paths.drawing, slice);
            if (slice == lists.size()) lists.emplace_back();
            lists[slice].push_back(command);
        }
    }
    return lists;
}

void ArrayNight::KeepAsDone(const Entry& entry, const CommandPaths& paths) {
    Entry done = EndedUnseen(entry, paths);
    journal_.Append({done});
    Count(done);
}

std::string ArrayNight::Script() const {
    std::string script = "#!/bin/sh\n";
    if (const char* home = std::getenv("VEXLATOR_HOME"))
        script += "export VEXLATOR_HOME=" + ShellWord(home) + "\n";
    script += "cd " + ShellWord(CurrentFolder()) + " || exit 2\n";
    script += "exec " + ShellWord(platform::ExecutableFolder() + "/vexlator") + " --batch " +
              ShellWord(slices_.Folder()) + "/\"$SLURM_ARRAY_TASK_ID\".list --resume --no-report" +
              " --jobs \"${SLURM_CPUS_PER_TASK:-1}\"";
    if (options_.timeout > 0) script += " --timeout " + util::FormatShortest(options_.timeout);
    if (options_.yesToAll) script += " --yes";
    if (options_.strict) script += " --strict";
    return script + "\n";
}

void ArrayNight::Submit(const Lists& lists) {
    std::string name = JobArray::NewName();
    JobArray array(name);
    slices_.Make(lists, Script(), name);
    JobArray::Form form;
    form.script = slices_.Folder() + "/task";
    form.output = util::ReplaceAll(slices_.Folder(), "%", "%%") + "/%a.log";
    form.tasks = lists.size();
    form.processors = std::max(options_.jobs, 1U);
    form.options = options_.sbatchOptions;
    std::size_t commands = 0;
    for (const std::vector<std::string>& list : lists) commands += list.size();
    std::string number;
    try {
        number = array.Submit(form);
    } catch (const SlurmError&) {
        slices_.Remove();
        throw;
    }
    Tell("array " + number + ": " + util::Counted(lists.size(), "task") + " for " +
         util::Counted(commands, "command"));
    Await(array, ended_.size() + commands);
}

void ArrayNight::Await(const JobArray& array, std::size_t commands) {
    try {
        Clock::time_point asked = Clock::now();
        bool isAlive = true;
        while (isAlive && ended_.size() < commands) {
            platform::ThrowIfStopped();
            platform::Sleep(betweenLooks);
            if (Clock::now() - asked > betweenQuestions) {
                isAlive = array.Look() != JobArray::State::Ended;
                asked = Clock::now();
            }
            TakeNew();
            progress_.Show(totals_);
        }
    } catch (...) {
        progress_.Clear();
        Cancel(array);
        throw;
    }
}

void ArrayNight::Cancel(const JobArray& array) {
    array.Cancel();
    Clock::time_point begin = Clock::now();
    bool hasEnded = false;
    while (!hasEnded && Clock::now() - begin < cancelling) {
        platform::Sleep(whileCancelled.count());
        hasEnded = array.Look() == JobArray::State::Ended;
    }
    TakeNew();
    if (hasEnded) slices_.Remove();
}

void ArrayNight::TakeNew() {
    // What was killed while it took over has some already.
    auto isKnown = [&](const Entry& entry) {
        std::optional<Entry> last = options_.resume ? journal_.Last(entry.command) : std::nullopt;
        return last && last->ToJson() == entry.ToJson();
    };
    slices_.TakeNew([&](std::vector<Entry> entries) {
        std::erase_if(entries, isKnown);
        journal_.Append(entries);
        for (const Entry& entry : entries)
            if (entry.status != Status::Begun) Count(entry);
        Print(entries, options_);
    });
}

void ArrayNight::Count(const Entry& entry) {
    Ended now{entry.status, !entry.losses.empty()};
    auto [place, isNew] = ended_.try_emplace(entry.command, now);
    if (!isNew) {
        --totals_.ended[place->second.status];
        totals_.withLosses -= place->second.hasLosses ? 1 : 0;
        place->second = now;
    }
    ++totals_.ended[now.status];
    totals_.withLosses += now.hasLosses ? 1 : 0;
}

void ArrayNight::TellLost(const Lists& lists) const {
    for (std::size_t i = 0; i < lists.size(); ++i) {
        auto isMissing = [&](const std::string& command) { return !ended_.contains(command); };
        auto missing = static_cast<std::size_t>(std::ranges::count_if(lists[i], isMissing));
        if (missing > 0)
            Tell("task " + std::to_string(i + 1) + " ended with " + util::Counted(missing, "command") +
                 " not run, --resume runs them; what it told is in " + slices_.Folder() + "/" +
                 std::to_string(i + 1) + ".log");
    }
}

}  // namespace vexlator::batch
