// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/projection/DatumShift.h"
#include "coords/projection/Ellipsoid.h"
#include "coords/projection/Lanes.h"
#include "coords/projection/TransverseMercator.h"

#include <optional>

/// The door to the arithmetic in this folder: others include this header alone.
namespace vexlator::coords {

/// A grid: the transverse Mercator projection of a datum and, when there is one, the shift to another datum,
/// in which longitudes and latitudes are.
class Projection {
public:
    explicit Projection(const TransverseMercator::Parameters& grid, std::optional<DatumShift> shift = {})
        : grid_(grid), shift_(shift) {}

    /// Longitude and latitude to easting and northing. Points outside what the arithmetic covers become not a
    /// number.
    void ToGrid(Lanes& points) const;
    /// The inverse.
    void ToGeographic(Lanes& points) const;

private:
    TransverseMercator grid_;
    std::optional<DatumShift> shift_;
};

}  // namespace vexlator::coords
