// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::gis {

/// DXF, DGN or DWG.
bool IsCadFormat(std::string_view code);

/// Makes one drawing of CAD files: blocks stay blocks, attributes of inserts and extended data become
/// attributes, hatches filled areas. Layers that are off or frozen are frozen, and hidden entities go to
/// frozen layers.
/// @throws platform::ReadError for an only source that cannot be read, platform::WriteError
config::Outcome ImportCad(config::Run& run, const std::string& code, const std::vector<std::string>& sources,
                          const std::string& drawingPath);

}  // namespace vexlator::gis
