// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Options.h"
#include "config/Outcome.h"
#include "startup/ExitStatus.h"

#include <functional>
#include <string>

namespace vexlator::batch {

/// The result of a command.
struct CommandResult {
    startup::ExitStatus status = startup::ExitStatus::Failed;
    config::Outcome outcome;
    std::string losses;  ///< one line; "": none
};

/// Performs one command text, like the program with the text as its arguments.
using Perform = std::function<CommandResult(const std::string& command)>;

/// Runs the commands of a list, in processes beside this one, and writes journal and report. Messages go to
/// standard error. Never throws.
/// @returns Done if all commands are done, Failed if some are not, NotUsable if the list, the journal or an
/// option is not usable, NothingToDo if there is no command, Interrupted
startup::ExitStatus Run(const Options& options, const Perform& perform);

}  // namespace vexlator::batch
