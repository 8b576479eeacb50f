// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Outcome.h"
#include "config/Run.h"

#include <string>

namespace vexlator::corporate {

/// Writes the layers of a drawing into a store, in place of what an earlier export of the same job left
/// there: its features carry the job's path in gis::jobColumn, or the drawing's when it has no job. One
/// transaction.
/// @throws platform::ReadError, platform::WriteError
config::Outcome ExportToStore(config::Run& run, const std::string& drawingPath, const std::string& location,
                              config::ConversionReport& report);

}  // namespace vexlator::corporate
