// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/projection/DatumShift.h"
#include "coords/projection/Ellipsoid.h"
#include "coords/projection/Lanes.h"
#include "coords/projection/TransverseMercator.h"

#include <optional>

/// The interface to the arithmetic in this folder: other folders include only this header.
namespace vexlator::coords {

/// A grid: the transverse Mercator projection of a datum. Optionally a shift to another datum, to which
/// longitudes and latitudes refer.
class Projection {
public:
    explicit Projection(const TransverseMercator::Parameters& grid, std::optional<DatumShift> shift = {})
        : grid_(grid), shift_(shift) {}

    /// Longitude and latitude to easting and northing. Points out of range become NaN.
    void ToGrid(Lanes& points) const;
    /// The inverse.
    void ToGeographic(Lanes& points) const;

private:
    TransverseMercator grid_;
    std::optional<DatumShift> shift_;
};

}  // namespace vexlator::coords
