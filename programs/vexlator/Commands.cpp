// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Commands.h"

#include "batch/Entry.h"
#include "platform/Paths.h"
#include "platform/Terminal.h"
#include "startup/CommandLine.h"
#include "startup/go/GoFlow.h"
#include "ui/terminal/TerminalInterface.h"

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace vexlator {

namespace {

using startup::ExitStatus;

/// Shows messages, and keeps them.
class RecordingInterface : public ui::TerminalInterface {
public:
    using TerminalInterface::TerminalInterface;

    void ShowMessage(std::string_view text) override {
        messages_.push_back("message: " + std::string(text));
        TerminalInterface::ShowMessage(text);
    }
    bool AskYesNo(std::string_view text) override {
        messages_.push_back("question: " + std::string(text));
        return TerminalInterface::AskYesNo(text);
    }
    void Report(std::string_view line) override {
        messages_.emplace_back(line);
        TerminalInterface::Report(line);
    }
    std::vector<std::string> TakeMessages() { return std::move(messages_); }

private:
    std::vector<std::string> messages_;
};

batch::Status StatusOf(ExitStatus status) {
    if (status == ExitStatus::Done) return batch::Status::Done;
    return status == ExitStatus::Interrupted ? batch::Status::Interrupted : batch::Status::Failed;
}

/// GO goes on without its window; why it is not opened for others.
startup::SelectionWindow NoWindow(ui::UserInterface& userInterface, const std::string& command) {
    return [&userInterface, command](config::Run& run, std::string_view received) {
        if (startup::IsGo(received)) return startup::PerformGo(run, received);
        userInterface.Report("vexlator: \"" + command + "\" is no conversion");
        return ExitStatus::NothingToDo;
    };
}

}  // namespace

batch::CommandResult PerformCommand(const Options& options, ui::UserInterface& userInterface,
                                    const startup::SelectionWindow& showSelection) {
    batch::CommandResult result;
    auto keep = [&](config::Run& run) {
        result.outcome = run.Outcome();
        result.losses = run.Losses().Line();
    };
    result.status = startup::Main(options.commandText, userInterface,
                                  {.showSelection = showSelection,
                                   .settings = options.settings,
                                   .folder = options.folder,
                                   .whenEnded = keep});
    if (options.strict && result.status == ExitStatus::Done && !result.losses.empty())
        result.status = ExitStatus::Lossy;
    return result;
}

batch::CommandResult PerformInBatch(const Options& options) {
    ui::TerminalInterface terminal(stdin, stderr, {.yesToAll = options.yesToAll});
    if (!options.error.empty()) {
        terminal.Report("vexlator: " + options.error);
        return {.status = ExitStatus::NotUsable, .outcome = {}, .losses = ""};
    }
    return PerformCommand(options, terminal, NoWindow(terminal, options.commandText));
}

ExitStatus PerformAsJson(const Options& options) {
    RecordingInterface terminal(stdin, stderr,
                                {.yesToAll = options.yesToAll, .isTerminal = platform::IsTerminal(stderr)});
    batch::Entry entry;
    platform::SystemTime begin = batch::Now();
    batch::CommandResult result = PerformCommand(options, terminal, NoWindow(terminal, options.commandText));
    entry.command = options.commandText;
    entry.folder = batch::CurrentFolder();
    entry.start = batch::TimeText(begin);
    entry.end = batch::TimeText(batch::Now());
    entry.seconds = std::chrono::duration<double>(batch::Now() - begin).count();
    entry.status = StatusOf(result.status);
    entry.exit = static_cast<int>(result.status);
    entry.TakeOutcome(result.outcome, result.losses);
    entry.messages = terminal.TakeMessages();
    std::erase(entry.messages, result.losses);
    bool printed = std::puts(entry.ToJson().c_str()) >= 0 && std::fflush(stdout) == 0;
    return printed ? result.status : ExitStatus::Failed;
}

}  // namespace vexlator
