// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/projection/Ellipsoid.h"
#include "coords/projection/Lanes.h"
#include "coords/projection/Series.h"

#include <array>

namespace vexlator::coords {

/// The transverse Mercator projection by Krueger's series to the sixth order in the third flattening, as in
/// C. F. F. Karney, "Transverse Mercator with an accuracy of a few nanometers", Journal of Geodesy 85 (2011),
/// with the direct series between geodetic and conformal latitude. Its range is eleven degrees on either side
/// of the central meridian, up to a latitude of 83 degrees. Points outside become NaN.
class TransverseMercator {
public:
    struct Parameters {
        Ellipsoid ellipsoid;
        double latitude = 0, longitude = 0;  ///< of the origin, radians
        double scale = 1;                    ///< on the central meridian
        double easting = 0, northing = 0;    ///< of the origin
    };
    explicit TransverseMercator(const Parameters& parameters);

    /// Easting and northing to longitude and latitude.
    void ToGeographic(Lanes& points) const;
    /// Longitude and latitude to easting and northing.
    void ToGrid(Lanes& points) const;

private:
    /// Factors of the sines of 2, 4 ... 12 times an angle.
    using Harmonics = std::array<double, 6>;
    struct Complex {
        double re, im;
    };

    static double Sum(const Harmonics& harmonics, SineCosine twiceAngle);
    /// For the angle xi + i eta: circular functions of 2 xi, hyperbolic functions of 2 eta.
    static Complex Sum(const Harmonics& harmonics, SineCosine twiceXi, SineCosine twiceEta);
    /// Northing and easting on the unit sphere, from the equator and the central meridian.
    Complex GridOf(double longitude, double latitude) const;

    Parameters origin_;
    double radius_;                          ///< radius of the rectifying sphere, times the scale
    double northing_;                        ///< of the equator
    Harmonics toSphere_, fromSphere_;        ///< Karney's alpha; beta, which is subtracted
    Harmonics toConformal_, fromConformal_;  ///< latitudes
};

}  // namespace vexlator::coords
