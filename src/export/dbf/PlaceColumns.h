// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "formats/dbf/DbfWriter.h"

#include <string>
#include <vector>

namespace vexlator::exporter {

/// Columns for the place of a feature: EASTING and NORTHING, and LEVEL, its height.
std::vector<formats::DbfColumn> PlaceColumns(bool withHeight);

/// Replaces `values` by those of these three columns (PlaceOf). Empty without vertices.
void ReadPlace(drawing::EntityView entity, std::vector<std::string>& values);

}  // namespace vexlator::exporter
