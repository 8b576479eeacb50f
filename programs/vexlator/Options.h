// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Installation.h"

#include <span>
#include <string>
#include <vector>

namespace vexlator {

/// What stands around the command text.
struct Options {
    enum class Task { Run, Help, Version, Init, Check, Settings, Batch, Mosaic };
    Task task = Task::Run;
    bool yesToAll = false;
    bool strict = false;  ///< losses make an exit status
    bool json = false;    ///< prints what came of the command
    std::string folder;   ///< Init, Mosaic; Run: where results go, "" for their usual place
    std::vector<config::IniOverride> settings;  ///< Run: for this run alone
    std::string commandText;                    ///< Run: the other arguments, joined by blanks
    std::vector<const char*> batchArguments;    ///< Batch: what follows
    std::string error;                          ///< why the arguments cannot be used; "" when they can
};

/// --help, --version, --init, --check, --settings, --batch and --mosaic (and what people type for them) come
/// first and decide the task.
/// --yes, --strict, --json, --set, --to and --quiet are taken before and behind the command. After a lone
/// "--" everything is the command.
Options ParseOptions(std::span<const char* const> arguments);

}  // namespace vexlator
