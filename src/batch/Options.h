// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::batch {

/// Options of a batch run.
struct Options {
    std::string list;                  ///< a file of commands, a folder, or "-" for standard input
    std::string match;                 ///< for a folder: pattern of file names
    std::vector<std::string> formats;  ///< for a folder: target format; VDF imports
    unsigned jobs = 0;                 ///< number of parallel commands; 0: number of processors
    double timeout = 0;                ///< time limit of a command in seconds; 0: no limit
    bool resume = false;
    bool dryRun = false;
    bool json = false;
    bool yesToAll = false;
    bool strict = false;  ///< losses make a command fail
    bool help = false;
    bool slurm = false;           ///< as a job array of a cluster
    unsigned slices = 0;          ///< at most so many tasks of the array; 0: as many as is usual
    std::string sbatchOptions;    ///< further options of sbatch, as on a command line
    std::string journal, report;  ///< "": beside the list
    bool noReport = false;
    unsigned pictures = 200;  ///< at most so many in the report
    std::string error;        ///< why the arguments cannot be used; "" when they can
};

/// The arguments after --batch. Options can be before and after the list, with their values after a blank or
/// "=".
Options ParseOptions(std::span<const char* const> arguments);

extern const std::string_view helpText;

}  // namespace vexlator::batch
