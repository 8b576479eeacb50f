// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Options.h"
#include "batch/Batch.h"
#include "startup/Main.h"
#include "ui/UserInterface.h"

namespace vexlator {

/// Performs the command of the options and reports the results.
batch::CommandResult PerformCommand(const Options& options, ui::UserInterface& userInterface,
                                    const startup::SelectionWindow& showSelection);

/// The same for a command of a batch: without windows and without a user to answer.
batch::CommandResult PerformInBatch(const Options& options);

/// The same, and prints the results to standard output, as one JSON object on a line.
startup::ExitStatus PerformAsJson(const Options& options);

}  // namespace vexlator
