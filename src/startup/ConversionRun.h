// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "startup/Conversions.h"
#include "startup/ExitStatus.h"

#include <exception>
#include <string>
#include <string_view>

namespace vexlator::startup {

/// Ends a command that cannot run: says why in a plain line.
ExitStatus Refuse(config::Run& run, const std::string& reason, ExitStatus status);

/// Shows the error that ended a conversion.
void ShowError(config::Run& run, const std::exception& error);

/// Runs the importer of the format in an IMPORT command. Shows the importer's exceptions, with a line that an
/// existing drawing stays unchanged.
ExitStatus RunImport(config::Run& run, const Conversions& conversions, std::string_view text);

/// Runs the exporter of the format in a path, then the steps after an export, also for a format without an
/// exporter. A failed or stopped export leaves neither a record nor an empty folder of its own.
/// @throws exceptions of the exporter
ExitStatus RunExport(config::Run& run, const Conversions& conversions, std::string_view text);

/// Settings for the sources of commands.
config::KeyList SourceKeys();

}  // namespace vexlator::startup
