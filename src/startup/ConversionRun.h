// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Session.h"
#include "startup/CommandLine.h"
#include "startup/Conversions.h"
#include "startup/ExitStatus.h"

namespace vexlator::startup {

/// Runs the importer of the command's format. @throws whatever the importer throws.
ExitStatus RunImport(config::Session& session, const Conversions& conversions, ImportCommand command);

/// Runs the exporter of the command's format, then the steps that follow an export; those also when nothing
/// exports this format. An export that failed or was stopped leaves neither a record nor an empty folder that
/// it made. @throws whatever the exporter throws.
ExitStatus RunExport(config::Session& session, const Conversions& conversions, ExportCommand command);

}  // namespace vexlator::startup
