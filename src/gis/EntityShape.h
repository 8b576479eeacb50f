// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "util/Geometry.h"

#include <cstdint>
#include <vector>

namespace vexlator::gis {

/// What an entity becomes in a table of features.
enum class ShapeKind { Nothing, Place, Line, Area, LeftOut };

/// Closed polylines are areas, and so are those with the attribute Area, or with the mark of a ring. Those of
/// two vertices are lines, of one a point.
ShapeKind ShapeKindOf(const drawing::EntityView& entity);

/// Appends the entity's vertices; circles and arcs get one for every four degrees or less, and areas end with
/// their first vertex. `heights` gets as many.
void AppendVertices(const drawing::EntityView& entity, ShapeKind kind, std::vector<util::PlanePoint>& points,
                    std::vector<double>& heights);

}  // namespace vexlator::gis
