// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "gis/EntityShape.h"

#include <string>

namespace vexlator::gis {

/// How an entity looks, as GDAL's style of a feature.
std::string StyleText(const drawing::EntityView& entity, ShapeKind kind);

}  // namespace vexlator::gis
