// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <optional>
#include <string>

namespace vexlator::coords {

/// The coordinate system of drawings by [GPS] TRANSFORMATION, as ESRI WKT without heights, for .PRJ files. ""
/// if WKT cannot express the setting: it is an operation, does not load, or is no definition. Nothing if the
/// setting is empty: drawings are then in the British National Grid, whose text the installation has.
std::optional<std::string> DrawingProjection(const config::Run& run);

/// The same system as an srsName of GML whose first axis is x: a URN of OGC 07-092r3 if the system's own
/// first axis points east, else a name of the older form "...epsg.xml#CODE", which stands for x before y. ""
/// for a system without an EPSG code.
std::string DrawingSrsName(const config::Run& run);

/// Longitude and latitude on WGS 84, the result of conversions to degrees.
std::string DegreesProjection();

}  // namespace vexlator::coords
