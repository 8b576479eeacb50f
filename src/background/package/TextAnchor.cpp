// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/TextAnchor.h"

#include "util/Angles.h"

#include <cmath>

namespace vexlator::background {

namespace {

/// The shift from the insertion point: shares of the text's width along it and of its height across it.
struct Shift {
    double along, across;
};
constexpr int firstCode = -1;
constexpr Shift shifts[] = {{0, 1},        {0, 0},  {0, 0},  {0, 0},  {-0.5, 1}, {-0.5, 0},
                            {-0.5, -0.25}, {-1, 0}, {-1, 0}, {-1, 0}, {-0.5, 0}};
constexpr int codeCount = static_cast<int>(std::size(shifts));

/// Width of a character in text heights.
constexpr double characterWidth = 0.65;

}  // namespace

std::optional<util::PlanePoint> TextAnchor(util::PlanePoint insertion, int positionCode, double tenthsHeight,
                                           double tenthsDegrees, std::size_t characters) {
    if (positionCode < firstCode || positionCode >= firstCode + codeCount) return std::nullopt;
    Shift shift = shifts[positionCode - firstCode];
    double height = tenthsHeight / 10;
    double width = static_cast<double>(characters) * characterWidth * height;
    double angle = tenthsDegrees / 10 / util::degreesPerRadian;
    double cosine = std::cos(angle), sine = std::sin(angle);
    return util::PlanePoint{insertion.x + shift.along * width * cosine - shift.across * height * sine,
                            insertion.y + shift.along * width * sine + shift.across * height * cosine};
}

}  // namespace vexlator::background
