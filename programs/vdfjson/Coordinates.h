// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "vdfjson/JsonValues.h"

#include <vector>

namespace vexlator::vdfjson {

/// A position [x, y] or [x, y, z]. Further numbers are ignored, as in GeoJSON. @throws BadValue
drawing::Point PointOf(element value);

/// An array of positions, replacing the contents of `points`. @throws BadValue, naming the position
void ReadPoints(element value, std::vector<drawing::Point>& points);

}  // namespace vexlator::vdfjson
