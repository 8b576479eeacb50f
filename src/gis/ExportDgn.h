// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Outcome.h"
#include "config/Run.h"

#include <string>

namespace vexlator::gis {

/// Writes a drawing as a design file of version 7, in millimetres. Each layer becomes a level with a number,
/// which a line tells. Attributes have no place there and are counted as lost. [DWG] ROTATE and [GENERAL]
/// FalseOrigin hold as for DXF.
/// @throws platform::ReadError, platform::WriteError
config::Outcome ExportDgn(config::Run& run, const std::string& drawingPath, const std::string& path,
                          config::ConversionReport& report);

}  // namespace vexlator::gis
