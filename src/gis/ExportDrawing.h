// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Outcome.h"
#include "config/Run.h"
#include "gis/GisFormat.h"

#include <string>

namespace vexlator::gis {

/// Writes the layers of a drawing into `folder`: all into one file with the base name `name`, or each into a
/// file of its own. All files appear together. What the user learns goes through the run and `report`.
/// @throws platform::ReadError, platform::WriteError
config::Outcome ExportDrawing(config::Run& run, const GisFormat& format, const std::string& drawingPath,
                              const std::string& folder, const std::string& name,
                              config::ConversionReport& report);

}  // namespace vexlator::gis
