// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "gis/GisFormat.h"
#include "gis/Ogr.h"

namespace vexlator::gis {

/// The coordinate system of what is written, with x before y. Null if the settings define none, which is
/// told.
SpatialReference TargetSystem(config::Run& run, const GisFormat& format, bool inDegrees);

}  // namespace vexlator::gis
