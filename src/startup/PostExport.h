// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "startup/CommandLine.h"

namespace vexlator::startup {

/// The steps after an export, in this order. The export is recorded in the workflow database if the drawing
/// belongs to a job. The list of missing photographs is written, or an old one removed. The folder is packed
/// if the settings ask for it.
/// @returns false if no archive could be made; the user has seen a message
/// @throws platform::WriteError
bool RunPostExportSteps(config::Run& run, const ExportCommand& command);

}  // namespace vexlator::startup
