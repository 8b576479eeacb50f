// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Outcome.h"
#include "config/Run.h"
#include "gis/ImportSources.h"

#include <string>

namespace vexlator::corporate {

/// Reads all feature classes of a source into a drawing; only what touches the run's extent, and what
/// `isWanted`.
/// @param source what Store::Open() takes, and anything else that GDAL reads
/// @throws platform::ReadError, platform::WriteError
config::Outcome ImportFromStore(config::Run& run, const std::string& source, const std::string& drawingPath,
                                config::ConversionReport& report,
                                const gis::FeatureFilter& isWanted = nullptr);

}  // namespace vexlator::corporate
