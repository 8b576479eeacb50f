// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

namespace vexlator {

/// What stands before the command text.
struct Options {
    enum class Task { Run, Help, Version, Init, Check };
    Task task = Task::Run;
    bool yesToAll = false;
    std::string initFolder;   ///< Init
    std::string commandText;  ///< Run: the arguments after the options, joined by blanks
    std::string error;        ///< why the arguments cannot be used; "" when they can
};

/// Options begin with "--" and end at the first argument that does not, or after a lone "--".
/// The first of --help, --version, --init and --check decides the task.
Options ParseOptions(std::span<const char* const> arguments);

}  // namespace vexlator
