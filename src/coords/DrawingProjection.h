// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <optional>
#include <string>

namespace vexlator::coords {

/// The coordinate system that [GPS] TRANSFORMATION says drawings are in, as ESRI's well-known text without
/// heights, for .PRJ files. "" where the setting leads to none that the text can tell: it is an operation,
/// does not load, or is no definition. Nothing where the setting is empty: drawings are in the British
/// National Grid, whose text the installation has.
std::optional<std::string> DrawingProjection(const config::Run& run);

/// Longitude and latitude on WGS 84, which conversions to degrees result in.
std::string DegreesProjection();

}  // namespace vexlator::coords
