// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/projection/DatumShift.h"

#include "coords/projection/Series.h"

#include <cmath>

namespace vexlator::coords {

namespace {

/// The angle between two directions that differ little. Their vectors need not have unit length.
inline double SmallAngle(double fromX, double fromY, double toX, double toY) {
    return SmallArcTangent(Within(mostTangent, (fromX * toY - fromY * toX) / (fromX * toX + fromY * toY)));
}

}  // namespace

DatumShift::DatumShift(const Ellipsoid& source, const Ellipsoid& target, const HelmertParameters& helmert)
    : source_(source), target_(target) {
    auto [x, y, z] = helmert.rotation;
    const std::array<Vector, 3> rotation{Vector{1, -z, y}, Vector{z, 1, -x}, Vector{-y, x, 1}};
    forward_.translation = helmert.translation;
    inverse_.translation = {};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column) {
            forward_.rows[row][column] = helmert.scale * rotation[row][column];
            // The transpose undoes such small rotations.
            inverse_.rows[row][column] = rotation[column][row] / helmert.scale;
            inverse_.translation[row] -= inverse_.rows[row][column] * helmert.translation[column];
        }
}

void DatumShift::Apply(Lanes& points) const {
    Apply(source_, forward_, target_, points);
}

void DatumShift::ApplyInverse(Lanes& points) const {
    Apply(target_, inverse_, source_, points);
}

void DatumShift::Apply(const Ellipsoid& source, const Map& map, const Ellipsoid& target, Lanes& points) {
    const double a = source.a, e2 = source.EccentricitySquared(), targetA = target.a,
                 targetB = target.PolarRadius(), targetE2 = target.EccentricitySquared(),
                 secondE2 = targetE2 / (1 - targetE2);
    const auto [row1, row2, row3] = map.rows;
    const Vector translation = map.translation;
    for (std::size_t i = 0; i < Lanes::count; ++i) {
        auto [sinLatitude, cosLatitude] = SineCosineOf(points.y[i]);
        auto [sinLongitude, cosLongitude] = SineCosineOf(points.x[i] / 2).Doubled();
        double normal = a / std::sqrt(1 - e2 * sinLatitude * sinLatitude);
        double fromAxis = (normal + points.height[i]) * cosLatitude;
        double x = fromAxis * cosLongitude, y = fromAxis * sinLongitude;
        double z = (normal * (1 - e2) + points.height[i]) * sinLatitude;

        double x2 = row1[0] * x + row1[1] * y + row1[2] * z + translation[0];
        double y2 = row2[0] * x + row2[1] * y + row2[2] * z + translation[1];
        double z2 = row3[0] * x + row3[1] * y + row3[2] * z + translation[2];

        double p = std::sqrt(x2 * x2 + y2 * y2);
        double sine = z2 * targetA, cosine = p * targetB;  // of the parametric latitude
        double length = std::sqrt(sine * sine + cosine * cosine);
        sine /= length;
        cosine /= length;
        double up = z2 + secondE2 * targetB * sine * sine * sine;
        double out = p - targetE2 * targetA * cosine * cosine * cosine;
        points.x[i] += SmallAngle(cosLongitude, sinLongitude, x2, y2);
        points.y[i] += SmallAngle(cosLatitude, sinLatitude, out, up);
    }
}

}  // namespace vexlator::coords
