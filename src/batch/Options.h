// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::batch {

/// How a night is to be run.
struct Options {
    std::string list;                  ///< a file of commands, a folder, or "-" for standard input
    std::string match;                 ///< of a folder: which file names
    std::vector<std::string> formats;  ///< of a folder: what to make of them; VDF imports
    unsigned jobs = 0;                 ///< commands at a time; 0: as many as there are processors
    double timeout = 0;                ///< seconds that a command may take; 0: no limit
    bool resume = false;
    bool dryRun = false;
    bool json = false;
    bool yesToAll = false;
    bool strict = false;  ///< losses make a command fail
    bool help = false;
    std::string journal, report;  ///< "": beside the list
    unsigned pictures = 200;      ///< at most so many in the report
    std::string error;            ///< why the arguments cannot be used; "" when they can
};

/// What follows --batch. Options may stand before and behind the list, their values after a blank or "=".
Options ParseOptions(std::span<const char* const> arguments);

extern const std::string_view helpText;

}  // namespace vexlator::batch
