// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

namespace vexlator::coords {

struct Ellipsoid {
    double a = 0;  ///< equatorial radius, metres
    double f = 0;  ///< flattening

    double PolarRadius() const { return a * (1 - f); }
    /// Square of the first eccentricity.
    double EccentricitySquared() const { return f * (2 - f); }
    double ThirdFlattening() const { return f / (2 - f); }
};

}  // namespace vexlator::coords
