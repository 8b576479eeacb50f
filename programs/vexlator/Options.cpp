// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Options.h"

#include "platform/AsciiCase.h"
#include "startup/CommandLine.h"

#include <string_view>

namespace vexlator {

namespace {

using Task = Options::Task;

struct TaskName {
    std::string_view name;
    Task task;
};
/// What people type for it, in any letter case.
constexpr TaskName taskNames[] = {
    {"--help", Task::Help},
    {"-help", Task::Help},
    {"-h", Task::Help},
    {"-?", Task::Help},
    {"/?", Task::Help},
    {"--version", Task::Version},
    {"-version", Task::Version},
    {"-v", Task::Version},
    {"--check", Task::Check},
    {"-check", Task::Check},
    {"--init", Task::Init},
    {"-init", Task::Init},
    {"--settings", Task::Settings},
    {"--batch", Task::Batch},
    {"-batch", Task::Batch},
};
/// These could begin a path, so they have to stand alone.
constexpr TaskName loneNames[] = {{"help", Task::Help}, {"version", Task::Version}};

struct Flag {
    std::string_view name;
    bool Options::*member;
};
constexpr Flag flags[] = {
    {startup::yesOption, &Options::yesToAll}, {"--strict", &Options::strict}, {"--json", &Options::json}};

bool SetFlag(Options& options, std::string_view argument) {
    for (const Flag& flag : flags) {
        if (!platform::SameNoCase(argument, flag.name)) continue;
        options.*flag.member = true;
        return true;
    }
    return false;
}

template <std::size_t count>
Task TaskOf(const TaskName (&names)[count], std::string_view argument) {
    for (const TaskName& known : names)
        if (platform::SameNoCase(known.name, argument)) return known.task;
    return Task::Run;
}

Options InitOptions(Options options, std::span<const char* const> arguments) {
    if (!arguments.empty()) options.initFolder = arguments[0];
    if (options.initFolder.empty() || options.initFolder.starts_with("--"))
        options.error = "--init needs a folder";
    else if (arguments.size() > 1)
        options.error = "--init takes one folder; put quotes around a name with blanks";
    return options;
}

void Append(std::string& text, std::string_view word) {
    if (!text.empty()) text += ' ';
    text += word;
}

/// The command, and the options before and behind it.
Options CommandOptions(Options options, std::span<const char* const> arguments) {
    bool literal = false;
    for (std::string_view argument : arguments) {
        if (literal)
            Append(options.commandText, argument);
        else if (argument == "--" && options.commandText.empty())
            literal = true;
        else if (!SetFlag(options, argument))
            Append(options.commandText, platform::SameNoCase(argument, "--quiet") ? "-QUIET" : argument);
    }
    if (!literal && startup::TakeYes(options.commandText)) options.yesToAll = true;
    return options;
}

}  // namespace

Options ParseOptions(std::span<const char* const> arguments) {
    Options options;
    if (arguments.size() == 1) options.task = TaskOf(loneNames, arguments[0]);
    if (options.task != Task::Run) return options;
    std::span<const char* const> rest = arguments;
    while (!rest.empty() && SetFlag(options, rest[0])) rest = rest.subspan(1);
    if (rest.empty()) return CommandOptions(options, arguments);
    std::string_view first = rest[0];
    options.task = TaskOf(taskNames, first);
    if (options.task == Task::Init) return InitOptions(options, rest.subspan(1));
    if (options.task == Task::Batch) options.batchArguments.assign(rest.begin() + 1, rest.end());
    if (options.task != Task::Run) return options;
    bool isUnknown = first.starts_with("--") && first != "--" && !platform::SameNoCase(first, "--quiet") &&
                     first.find(' ') == std::string_view::npos;
    if (isUnknown) options.error = "unknown option " + std::string(first);
    return isUnknown ? options : CommandOptions(options, arguments);
}

}  // namespace vexlator
