// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

namespace vexlator {

/// What stands around the command text.
struct Options {
    enum class Task { Run, Help, Version, Init, Check, Settings };
    Task task = Task::Run;
    bool yesToAll = false;
    std::string initFolder;   ///< Init
    std::string commandText;  ///< Run: the other arguments, joined by blanks
    std::string error;        ///< why the arguments cannot be used; "" when they can
};

/// --help, --version, --init, --check and --settings (and what people type for them) come first and decide the task.
/// --yes and --quiet are taken before and behind the command. After a lone "--" everything is the command.
Options ParseOptions(std::span<const char* const> arguments);

}  // namespace vexlator
