// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/projection/Projection.h"

#include <numbers>

namespace vexlator::coords {

void Projection::ToGrid(Lanes& points) const {
    for (double& longitude : points.x) longitude = Within(std::numbers::pi, longitude);
    for (double& latitude : points.y) latitude = Within(std::numbers::pi / 2, latitude);
    if (shift_) shift_->ApplyInverse(points);
    grid_.ToGrid(points);
}

void Projection::ToGeographic(Lanes& points) const {
    grid_.ToGeographic(points);
    if (shift_) shift_->Apply(points);
    for (double& longitude : points.x) longitude = Within(std::numbers::pi, longitude);
}

}  // namespace vexlator::coords
