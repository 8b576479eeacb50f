// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/RoundLengths.h"

#include "util/Numbers.h"

#include <algorithm>
#include <cmath>

namespace vexlator::render {

double RoundStep(double limit) {
    if (!(limit > 0) || !std::isfinite(limit)) return 1;
    double power = std::pow(10.0, std::floor(std::log10(limit)));
    for (double factor : {5.0, 2.0})
        if (factor * power <= limit) return factor * power;
    return power;
}

int DecimalsOf(double step) {
    return std::clamp(static_cast<int>(-std::floor(std::log10(step) + 1e-9)), 0, 9);
}

bool IsInDegrees(const Box& ground) {
    return ground.minX >= -180 && ground.maxX <= 180 && ground.minY >= -90 && ground.maxY <= 90;
}

std::string LengthText(double length, bool inDegrees) {
    if (inDegrees) return util::FormatFixed(length, DecimalsOf(length)) + "\u00B0";
    if (length >= 1000) return util::FormatFixed(length / 1000, 0) + " km";
    return util::FormatFixed(length, DecimalsOf(length)) + " m";
}

}  // namespace vexlator::render
