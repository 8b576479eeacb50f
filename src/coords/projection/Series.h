// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

/// Elementary functions on the narrow ranges of a map projection. They are Taylor series with a remainder
/// below 1e-17. They have neither branches nor calls, so that the compiler computes several points at once.
namespace vexlator::coords {

/// first + x (second + x (third + ...))
constexpr double Polynomial(double, double last) {
    return last;
}
template <typename... More>
constexpr double Polynomial(double x, double first, double second, More... more) {
    return first + x * Polynomial(x, second, more...);
}

/// The sine and cosine of an angle, or the hyperbolic sine and cosine.
struct SineCosine {
    double sine, cosine;

    /// The same for twice the angle.
    constexpr SineCosine Doubled() const { return {2 * sine * cosine, 1 - 2 * sine * sine}; }
};

/// For an angle within a quarter turn, in radians.
constexpr SineCosine SineCosineOf(double x) {
    double z = x * x;
    return {x * Polynomial(z, 1, -1.0 / 6, 1.0 / 120, -1.0 / 5040, 1.0 / 362880, -1.0 / 39916800,
                           1.0 / 6227020800, -1.0 / 1307674368000, 1.0 / 355687428096000,
                           -1.0 / 121645100408832000.0, 1.0 / 51090942171709440000.0),
            Polynomial(z, 1, -1.0 / 2, 1.0 / 24, -1.0 / 720, 1.0 / 40320, -1.0 / 3628800, 1.0 / 479001600,
                       -1.0 / 87178291200, 1.0 / 20922789888000, -1.0 / 6402373705728000,
                       1.0 / 2432902008176640000.0, -1.0 / 1124000727777607680000.0)};
}

/// The hyperbolic sine and cosine; |x| <= 0.45.
constexpr SineCosine HyperbolicOf(double x) {
    double z = x * x;
    return {
        x * Polynomial(z, 1, 1.0 / 6, 1.0 / 120, 1.0 / 5040, 1.0 / 362880, 1.0 / 39916800, 1.0 / 6227020800),
        Polynomial(z, 1, 1.0 / 2, 1.0 / 24, 1.0 / 720, 1.0 / 40320, 1.0 / 3628800, 1.0 / 479001600,
                   1.0 / 87178291200)};
}

/// Range of the two functions below.
constexpr double mostTangent = 0.2;

/// The inverse tangent; |t| <= mostTangent.
constexpr double SmallArcTangent(double t) {
    return t * Polynomial(t * t, 1, -1.0 / 3, 1.0 / 5, -1.0 / 7, 1.0 / 9, -1.0 / 11, 1.0 / 13, -1.0 / 15,
                          1.0 / 17, -1.0 / 19, 1.0 / 21);
}

/// The inverse hyperbolic tangent; |t| <= mostTangent.
constexpr double SmallAreaTangent(double t) {
    return t * Polynomial(t * t, 1, 1.0 / 3, 1.0 / 5, 1.0 / 7, 1.0 / 9, 1.0 / 11, 1.0 / 13, 1.0 / 15,
                          1.0 / 17, 1.0 / 19, 1.0 / 21);
}

}  // namespace vexlator::coords
