// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Outcome.h"
#include "config/Run.h"
#include "gis/GisFormat.h"
#include "raster/Gdal.h"

#include <functional>
#include <ogr_api.h>
#include <string>
#include <vector>

namespace vexlator::gis {

/// Whether a feature of a source belongs to the drawing.
using FeatureFilter = std::function<bool(OGRFeatureH)>;

/// Opens a source of features. @throws platform::ReadError
raster::Dataset OpenSource(const GisFormat& format, const std::string& path);

/// Makes one drawing of all layers of the sources; coordinates in another system than the drawings' are
/// converted. Only features that touch the run's extent come, and that `isWanted`. What the user learns goes
/// through the run; `report` gets the templates that codes can have.
/// @throws platform::ReadError for an only source that cannot be read, platform::WriteError
config::Outcome ImportSources(config::Run& run, const GisFormat& format,
                              const std::vector<std::string>& sources, const std::string& drawingPath,
                              config::ConversionReport& report, const FeatureFilter& isWanted = nullptr);

}  // namespace vexlator::gis
