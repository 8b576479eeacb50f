// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "startup/CommandLine.h"

namespace vexlator::startup {

/// What follows an export, in this order: the export is recorded in the workflow database when the drawing
/// belongs to a job; the list of missing photographs is written, or an old one removed; the folder is packed
/// when the settings ask for it.
/// @returns false when no archive could be made, which the person has been told
/// @throws platform::WriteError
bool RunPostExportSteps(config::Run& run, const ExportCommand& command);

}  // namespace vexlator::startup
