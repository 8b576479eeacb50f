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

/// Ends a command that cannot be run: says why in a plain line.
ExitStatus Refuse(config::Run& run, const std::string& reason, ExitStatus status);

/// Shows what ended a conversion.
void ShowError(config::Run& run, const std::exception& error);

/// Runs the importer of the format that an IMPORT command names. What the importer throws is shown, and one
/// line says of a drawing that is there that it stays.
ExitStatus RunImport(config::Run& run, const Conversions& conversions, std::string_view text);

/// Runs the exporter of the format that a path names, then the steps that follow an export; those also when
/// nothing exports this format. An export that failed or was stopped leaves neither a record nor an empty
/// folder that it made. @throws whatever the exporter throws.
ExitStatus RunExport(config::Run& run, const Conversions& conversions, std::string_view text);

/// What settings say of the sources that commands name.
config::KeyList SourceKeys();

}  // namespace vexlator::startup
