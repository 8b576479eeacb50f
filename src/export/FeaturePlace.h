// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "util/Geometry.h"

namespace vexlator::exporter {

/// One position for a feature of any kind.
struct FeaturePlace {
    util::PlanePoint at;
    double height = 0;  ///< that of the first vertex
};

/// The position of a point, symbol, text, circle or arc, the centroid of an area, the middle of a line. The
/// entity has a vertex.
FeaturePlace PlaceOf(drawing::EntityView entity);

}  // namespace vexlator::exporter
