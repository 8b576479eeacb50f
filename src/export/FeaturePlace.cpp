// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/FeaturePlace.h"

#include <span>

namespace vexlator::exporter {

FeaturePlace PlaceOf(drawing::EntityView entity) {
    std::span<const util::PlanePoint> vertices = entity.planVertices();
    double height = entity.position().z;
    using enum drawing::Kind;
    if (entity.kindCode() != Polyline && entity.kindCode() != Line) return {vertices.front(), height};
    return {entity.isClosed() ? util::CentroidOf(vertices) : util::MiddleOf(vertices), height};
}

}  // namespace vexlator::exporter
