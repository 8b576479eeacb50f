// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Options.h"

#include <string_view>

namespace vexlator {

namespace {

std::string Joined(std::span<const char* const> arguments) {
    std::string text;
    for (const char* argument : arguments) {
        if (!text.empty()) text += ' ';
        text += argument;
    }
    return text;
}

Options TaskOptions(Options options, Options::Task task) {
    options.task = task;
    return options;
}

Options InitOptions(Options options, std::span<const char* const> arguments) {
    options.task = Options::Task::Init;
    if (!arguments.empty()) options.initFolder = arguments[0];
    if (options.initFolder.empty()) options.error = "--init needs a folder";
    return options;
}

}  // namespace

Options ParseOptions(std::span<const char* const> arguments) {
    Options options;
    while (!arguments.empty() && std::string_view(arguments[0]).starts_with("--")) {
        std::string_view option = arguments[0];
        arguments = arguments.subspan(1);
        if (option == "--help") return TaskOptions(options, Options::Task::Help);
        if (option == "--version") return TaskOptions(options, Options::Task::Version);
        if (option == "--check") return TaskOptions(options, Options::Task::Check);
        if (option == "--init") return InitOptions(options, arguments);
        if (option == "--") break;
        if (option == "--yes") {
            options.yesToAll = true;
        } else {
            options.error = "unknown option " + std::string(option);
            return options;
        }
    }
    options.commandText = Joined(arguments);
    return options;
}

}  // namespace vexlator
