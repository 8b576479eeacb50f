// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/projection/TransverseMercator.h"

#include "coords/projection/Series.h"

#include <cmath>

namespace vexlator::coords {

namespace {

constexpr double mostReach = mostTangent;  ///< from the central meridian, radians
constexpr double mostLatitude = 1.45;      ///< radians

}  // namespace

TransverseMercator::TransverseMercator(const Parameters& parameters) : origin_(parameters) {
    double n = parameters.ellipsoid.ThirdFlattening(), n2 = n * n, n3 = n2 * n, n4 = n3 * n, n5 = n4 * n,
           n6 = n5 * n;
    radius_ = parameters.scale * parameters.ellipsoid.a / (1 + n) * (1 + n2 / 4 + n4 / 64 + n6 / 256);
    toSphere_ = {n * Polynomial(n, 1.0 / 2, -2.0 / 3, 5.0 / 16, 41.0 / 180, -127.0 / 288, 7891.0 / 37800),
                 n2 * Polynomial(n, 13.0 / 48, -3.0 / 5, 557.0 / 1440, 281.0 / 630, -1983433.0 / 1935360),
                 n3 * Polynomial(n, 61.0 / 240, -103.0 / 140, 15061.0 / 26880, 167603.0 / 181440),
                 n4 * Polynomial(n, 49561.0 / 161280, -179.0 / 168, 6601661.0 / 7257600),
                 n5 * Polynomial(n, 34729.0 / 80640, -3418889.0 / 1995840),
                 n6 * 212378941.0 / 319334400};
    fromSphere_ = {n * Polynomial(n, 1.0 / 2, -2.0 / 3, 37.0 / 96, -1.0 / 360, -81.0 / 512, 96199.0 / 604800),
                   n2 * Polynomial(n, 1.0 / 48, 1.0 / 15, -437.0 / 1440, 46.0 / 105, -1118711.0 / 3870720),
                   n3 * Polynomial(n, 17.0 / 480, -37.0 / 840, -209.0 / 4480, 5569.0 / 90720),
                   n4 * Polynomial(n, 4397.0 / 161280, -11.0 / 504, -830251.0 / 7257600),
                   n5 * Polynomial(n, 4583.0 / 161280, -108847.0 / 3991680),
                   n6 * 20648693.0 / 638668800};
    toConformal_ = {n * Polynomial(n, -2, 2.0 / 3, 4.0 / 3, -82.0 / 45, 32.0 / 45, 4642.0 / 4725),
                    n2 * Polynomial(n, 5.0 / 3, -16.0 / 15, -13.0 / 9, 904.0 / 315, -1522.0 / 945),
                    n3 * Polynomial(n, -26.0 / 15, 34.0 / 21, 8.0 / 5, -12686.0 / 2835),
                    n4 * Polynomial(n, 1237.0 / 630, -12.0 / 5, -24832.0 / 14175),
                    n5 * Polynomial(n, -734.0 / 315, 109598.0 / 31185),
                    n6 * 444337.0 / 155925};
    fromConformal_ = {n * Polynomial(n, 2, -2.0 / 3, -2, 116.0 / 45, 26.0 / 45, -2854.0 / 675),
                      n2 * Polynomial(n, 7.0 / 3, -8.0 / 5, -227.0 / 45, 2704.0 / 315, 2323.0 / 945),
                      n3 * Polynomial(n, 56.0 / 15, -136.0 / 35, -1262.0 / 105, 73814.0 / 2835),
                      n4 * Polynomial(n, 4279.0 / 630, -332.0 / 35, -399572.0 / 14175),
                      n5 * Polynomial(n, 4174.0 / 315, -144838.0 / 6237),
                      n6 * 601676.0 / 22275};
    northing_ = parameters.northing - radius_ * GridOf(0, parameters.latitude).re;
}

// Clenshaw's summation, unrolled, because compilers do not vectorise loops inside a loop.

inline double TransverseMercator::Sum(const Harmonics& c, SineCosine twice) {
    double x = 2 * twice.cosine;
    double b6 = c[5], b5 = c[4] + x * b6, b4 = c[3] + x * b5 - b6, b3 = c[2] + x * b4 - b5;
    double b2 = c[1] + x * b3 - b4, b1 = c[0] + x * b2 - b3;
    return twice.sine * b1;
}

inline TransverseMercator::Complex TransverseMercator::Sum(const Harmonics& c, SineCosine xi2,
                                                           SineCosine eta2) {
    const Complex x{2 * xi2.cosine * eta2.cosine, -2 * xi2.sine * eta2.sine};
    auto step = [x](double factor, Complex last, Complex beforeLast) {
        return Complex{factor + x.re * last.re - x.im * last.im - beforeLast.re,
                       x.re * last.im + x.im * last.re - beforeLast.im};
    };
    Complex b6{c[5], 0}, b5 = step(c[4], b6, {0, 0}), b4 = step(c[3], b5, b6), b3 = step(c[2], b4, b5);
    Complex b2 = step(c[1], b3, b4), b1 = step(c[0], b2, b3);
    const Complex sine{xi2.sine * eta2.cosine, xi2.cosine * eta2.sine};
    return {sine.re * b1.re - sine.im * b1.im, sine.re * b1.im + sine.im * b1.re};
}

void TransverseMercator::ToGeographic(Lanes& points) const {
    for (std::size_t i = 0; i < Lanes::count; ++i) {
        // Krueger's plane to the sphere's transverse Mercator plane,
        double xi = Within(mostLatitude, (points.y[i] - northing_) / radius_);
        double eta = Within(mostReach, (points.x[i] - origin_.easting) / radius_);
        Complex shift = Sum(fromSphere_, SineCosineOf(xi).Doubled(), HyperbolicOf(2 * eta));
        xi -= shift.re;
        eta -= shift.im;
        // to the sphere: the latitude differs little from xi,
        auto [sine, cosine] = SineCosineOf(xi);
        auto [sinh, cosh] = HyperbolicOf(eta);
        double h = std::sqrt(sinh * sinh + cosine * cosine);
        double difference = sine * sinh * sinh / ((h + cosine) * (cosine * h + sine * sine));
        double conformal = xi - SmallArcTangent(Within(mostTangent, difference));
        // to the ellipsoid.
        SineCosine twice = SineCosine{sine / cosh, h / cosh}.Doubled();
        points.x[i] = origin_.longitude + SmallArcTangent(Within(mostTangent, sinh / cosine));
        points.y[i] = conformal + Sum(fromConformal_, twice);
    }
}

inline TransverseMercator::Complex TransverseMercator::GridOf(double longitude, double latitude) const {
    double conformal = latitude + Sum(toConformal_, SineCosineOf(latitude).Doubled());
    auto [sine, cosine] = SineCosineOf(conformal);
    auto [side, middle] = SineCosineOf(longitude);
    double difference =
        sine * cosine * side * side / ((1 + middle) * (cosine * cosine * middle + sine * sine));
    double xi = conformal + SmallArcTangent(Within(mostTangent, difference));
    double eta = SmallAreaTangent(Within(mostTangent, side * cosine));
    Complex shift = Sum(toSphere_, SineCosineOf(xi).Doubled(), HyperbolicOf(2 * eta));
    return {xi + shift.re, eta + shift.im};
}

void TransverseMercator::ToGrid(Lanes& points) const {
    for (std::size_t i = 0; i < Lanes::count; ++i) {
        Complex at =
            GridOf(Within(mostReach, points.x[i] - origin_.longitude), Within(mostLatitude, points.y[i]));
        points.x[i] = origin_.easting + radius_ * at.im;
        points.y[i] = northing_ + radius_ * at.re;
    }
}

}  // namespace vexlator::coords
