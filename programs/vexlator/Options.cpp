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
/// Common spellings of the option, in any letter case.
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
    {"--mosaic", Task::Mosaic},
    {"-mosaic", Task::Mosaic},
};
/// These could begin a path, so they must be separate words.
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

/// SECTION.KEY=VALUE
void AddSetting(Options& options, std::string_view text) {
    std::size_t dot = text.find('.'), equals = text.find('=');
    bool isSetting = dot > 0 && dot < equals && equals != std::string_view::npos && dot + 1 < equals;
    if (isSetting)
        options.settings.push_back({std::string(text.substr(0, dot)),
                                    std::string(text.substr(dot + 1, equals - dot - 1)),
                                    std::string(text.substr(equals + 1))});
    else
        options.error =
            "--set takes SECTION.KEY=VALUE, as in --set CSV.DP=2, not \"" + std::string(text) + "\"";
}

void SetFolder(Options& options, std::string_view text) {
    options.folder = text;
    if (text.empty()) options.error = "--to needs a folder";
}

struct ValueOption {
    std::string_view name;
    void (*take)(Options& options, std::string_view value);
};
constexpr ValueOption valueOptions[] = {{"--set", AddSetting}, {"--to", SetFolder}};

/// Takes an option whose value follows "=" or is the next argument.
bool TakeValue(Options& options, std::span<const char* const>& arguments) {
    std::string_view argument = arguments[0];
    std::string_view name = argument.substr(0, argument.find('='));
    for (const ValueOption& option : valueOptions) {
        if (!platform::SameNoCase(name, option.name)) continue;
        bool isJoined = name.size() < argument.size();
        if (!isJoined) arguments = arguments.subspan(1);
        if (arguments.empty())
            options.error = std::string(name) + " needs a value";
        else
            option.take(options, isJoined ? argument.substr(name.size() + 1) : arguments[0]);
        return true;
    }
    return false;
}

/// Takes the first option; false if there is none.
bool TakeOption(Options& options, std::span<const char* const>& arguments) {
    bool taken = SetFlag(options, arguments[0]) || TakeValue(options, arguments);
    if (taken && !arguments.empty()) arguments = arguments.subspan(1);
    return taken;
}

template <std::size_t count>
Task TaskOf(const TaskName (&names)[count], std::string_view argument) {
    for (const TaskName& known : names)
        if (platform::SameNoCase(known.name, argument)) return known.task;
    return Task::Run;
}

/// --init and --mosaic.
Options FolderOptions(Options options, std::span<const char* const> arguments) {
    std::string name = options.task == Task::Init ? "--init" : "--mosaic";
    options.folder = arguments.empty() ? "" : arguments[0];
    if (options.folder.empty() || options.folder.starts_with("--"))
        options.error = name + " needs a folder";
    else if (arguments.size() > 1)
        options.error = name + " takes one folder; put quotes around a name with blanks";
    return options;
}

void Append(std::string& text, std::string_view word) {
    if (!text.empty()) text += ' ';
    text += word;
}

/// The command, and the options before and after it.
Options CommandOptions(Options options, std::span<const char* const> arguments) {
    bool literal = false;
    while (!arguments.empty()) {
        if (!literal && TakeOption(options, arguments)) continue;
        std::string_view argument = arguments[0];
        arguments = arguments.subspan(1);
        if (literal)
            Append(options.commandText, argument);
        else if (argument == "--" && options.commandText.empty())
            literal = true;
        else
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
    while (!rest.empty() && TakeOption(options, rest)) continue;
    if (rest.empty() || !options.error.empty()) return options;
    std::string_view first = rest[0];
    options.task = TaskOf(taskNames, first);
    if (options.task == Task::Init || options.task == Task::Mosaic)
        return FolderOptions(options, rest.subspan(1));
    if (options.task == Task::Batch) options.batchArguments.assign(rest.begin() + 1, rest.end());
    if (options.task != Task::Run) return options;
    bool isUnknown = first.starts_with("--") && first != "--" && !platform::SameNoCase(first, "--quiet") &&
                     first.find(' ') == std::string_view::npos;
    if (isUnknown) options.error = "unknown option " + std::string(first);
    return isUnknown ? options : CommandOptions(options, rest);
}

}  // namespace vexlator
