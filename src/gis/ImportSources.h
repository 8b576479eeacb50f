// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Outcome.h"
#include "config/Run.h"
#include "gis/GisFormat.h"

#include <string>
#include <vector>

namespace vexlator::gis {

/// Makes one drawing of all layers of the sources; coordinates in another system than the drawings' are
/// converted. What the user learns goes through the run; `report` gets the templates that codes can have.
/// @throws platform::ReadError for an only source that cannot be read, platform::WriteError
config::Outcome ImportSources(config::Run& run, const GisFormat& format,
                              const std::vector<std::string>& sources, const std::string& drawingPath,
                              config::ConversionReport& report);

}  // namespace vexlator::gis
