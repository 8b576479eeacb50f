// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/OutsideProgram.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Process.h"
#include "platform/Signals.h"
#include "util/Counted.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <array>
#include <chrono>
#include <cmath>
#include <system_error>

namespace vexlator::config {

namespace {

constexpr double pollSeconds = 0.1;
constexpr double graceSeconds = 5;  ///< to end by itself after its sign
constexpr double endSeconds = 0.5;  ///< to end when it is asked to
constexpr int cannotRun = 127;      ///< exit status of what the system cannot start

struct WaitSettings {
    std::string minutes = "60";
};

using Keys = config::Keys<WaitSettings>;

constexpr KeyOf<WaitSettings> keys[] = {
    Keys::Text(
        "OPTION", "WaitMinutes", &WaitSettings::minutes,
        "minutes that a program which converts for this one may take, as in 90 or 0.5; then it is ended",
        "60"),
};

std::string LastLine(std::string_view text) {
    text = util::Trim(text, " \r\n");
    return std::string(text.substr(text.find_last_of('\n') + 1));
}

double Now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// As in "90 seconds".
std::string TimeText(double seconds) {
    bool isShort = seconds < 120;
    return util::Counted(static_cast<std::uint64_t>(std::llround(isShort ? seconds : seconds / 60)),
                         isShort ? "second" : "minute");
}

}  // namespace

std::string FindSuiteProgram(const Run& run, std::string_view pathBelowProgramFolder) {
    std::string name = util::FileNameOf(pathBelowProgramFolder);
    std::string path = util::JoinPath(run.Settings().ProgramFolder, pathBelowProgramFolder);
    std::string beside = platform::ExecutableFolder() + "/" + name;
    for (const std::string& each : {path, beside})
        for (std::string found : {each, each.substr(0, each.rfind(".exe"))})
            if (util::FileSize(found) > 0) return found;
    return "";
}

double UsualWait(const Run& run) {
    double minutes = util::NumberOf(ReadKeys<WaitSettings>(run.Installation(), keys).minutes);
    return 60 * (minutes > 0 ? minutes : util::NumberOf(WaitSettings().minutes));
}

OutsideProgram::OutsideProgram(Run& run, std::string program, const std::string& arguments)
    : run_(run), program_(std::move(program)) {
    Start(platform::ProgramArguments("\"" + program_ + "\" " + arguments));
}

OutsideProgram::OutsideProgram(Run& run, std::string program, std::vector<std::string> arguments)
    : run_(run), program_(std::move(program)) {
    arguments.insert(arguments.begin(), platform::NativePath(program_));
    Start(arguments);
}

void OutsideProgram::Start(const std::vector<std::string>& command) {
    try {
        task_.emplace(command);
    } catch (const std::system_error& error) {
        Fail("could not be started: " + std::string(error.what()));
    }
}

OutsideProgram::~OutsideProgram() {
    if (task_) End();
}

/// Asks it to end, so that it can tidy up. What then still runs is killed with the task.
void OutsideProgram::End() {
    task_->Stop();
    const double end = Now() + endSeconds;
    std::array<const platform::Task*, 1> waited{&*task_};
    while (!task_->Look() && Now() < end) platform::WaitForTasks(waited, pollSeconds);
}

bool OutsideProgram::Fail(const std::string& reason) {
    if (task_) End();
    output_ = std::string(Output());
    std::string said = LastLine(output_);
    problem_ = platform::NativePath(program_) + " " + reason + (said.empty() ? "" : ": " + said);
    task_.reset();
    return false;
}

/// Of one that has ended.
std::string OutsideProgram::EndText() const {
    if (task_->Signal() != 0) return "was ended by signal " + std::to_string(task_->Signal());
    if (task_->Status() == cannotRun && task_->Output().empty())
        return "could not be started: it is no program that this system runs";
    return "ended with exit status " + std::to_string(task_->Status()) + " and gave no sign of success";
}

bool OutsideProgram::WaitFor(const std::function<bool()>& isDone, const std::function<void()>& whileWaiting,
                             std::optional<double> seconds) {
    if (!task_) return false;
    const double limit = seconds.value_or(UsualWait(run_));
    const double end = Now() + limit;
    double grace = 0;  // until when a program that has given its sign may end by itself
    for (;;) {
        // Asked before the sign is looked for: one that is given at the very end counts.
        bool hasEnded = task_->Look();
        if (grace == 0 && isDone()) grace = Now() + graceSeconds;
        if (grace > 0 && (hasEnded || Now() > grace)) break;
        if (hasEnded) return Fail(EndText());
        if (grace == 0 && Now() > end)
            return Fail("gave no sign within " + TimeText(limit) + " and was ended");
        platform::ThrowIfStopped();
        whileWaiting();
        std::array<const platform::Task*, 1> waited{&*task_};
        platform::WaitForTasks(waited, pollSeconds);
    }
    End();
    output_ = task_->Output();
    task_.reset();
    return true;
}

bool OutsideProgram::WaitForEnd(const std::function<void()>& whileWaiting,
                                const std::function<bool()>& isDone) {
    auto isGood = [&] {
        if (!task_->Look() || task_->Signal() != 0) return false;
        return isDone ? isDone() : task_->Status() == 0;
    };
    return WaitFor(isGood, whileWaiting);
}

KeyList OutsideProgramKeys() {
    return ListOf<WaitSettings>(keys);
}

}  // namespace vexlator::config
