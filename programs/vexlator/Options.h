// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Installation.h"

#include <span>
#include <string>
#include <vector>

namespace vexlator {

/// The options around the command text.
struct Options {
    enum class Task { Run, Help, Version, Init, Check, Settings, Batch, Mosaic };
    Task task = Task::Run;
    bool yesToAll = false;
    bool strict = false;  ///< losses change the exit status
    bool json = false;    ///< print the results of the command
    std::string folder;   ///< Init, Mosaic; Run: folder for results, "" for their usual place
    std::vector<config::IniOverride> settings;  ///< Run: settings for this run only
    std::string commandText;                    ///< Run: the other arguments, joined by blanks
    std::vector<const char*> batchArguments;    ///< Batch: the arguments after it
    std::string error;                          ///< why the arguments are not usable; "" if they are
};

/// --help, --version, --init, --check, --settings, --batch and --mosaic (and their common spellings) come
/// first and decide the task. --yes, --strict, --json, --set, --to and --quiet are accepted before and after
/// the command. After a lone "--" everything is the command.
Options ParseOptions(std::span<const char* const> arguments);

}  // namespace vexlator
