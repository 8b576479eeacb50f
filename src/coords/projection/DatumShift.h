// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/projection/Ellipsoid.h"
#include "coords/projection/Lanes.h"

#include <array>

namespace vexlator::coords {

/// A similarity of geocentric coordinates: target = scale * (source + rotation x source) + translation.
struct HelmertParameters {
    std::array<double, 3> translation;  ///< metres
    std::array<double, 3> rotation;     ///< small, radians; of the position vector
    double scale = 1;
};

/// Longitude and latitude on one ellipsoid to those on another, through geocentric coordinates. Heights enter
/// the computation and stay unchanged. Latitudes by B. R. Bowring, "Transformation from spatial to
/// geographical coordinates", Survey Review 23 (1976).
class DatumShift {
public:
    DatumShift(const Ellipsoid& source, const Ellipsoid& target, const HelmertParameters& helmert);

    void Apply(Lanes& points) const;
    void ApplyInverse(Lanes& points) const;

private:
    using Vector = std::array<double, 3>;
    /// target = matrix * source + translation
    struct Map {
        std::array<Vector, 3> rows;
        Vector translation;
    };
    static void Apply(const Ellipsoid& source, const Map& map, const Ellipsoid& target, Lanes& points);

    Ellipsoid source_, target_;
    Map forward_, inverse_;
};

}  // namespace vexlator::coords
