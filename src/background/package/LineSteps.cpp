// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/LineSteps.h"

#include <cmath>

namespace vexlator::background {

namespace {

using util::PlanePoint;

bool IsLong(double distance) {
    return std::abs(distance) >= stepLimit;
}

bool IsLong(PlanePoint step) {
    return IsLong(step.x) || IsLong(step.y);
}

PlanePoint Less(PlanePoint a, PlanePoint b) {
    return {a.x - b.x, a.y - b.y};
}

/// The longest whole-unit step in the direction of a long one.
PlanePoint SubStep(PlanePoint step) {
    bool alongX = std::abs(step.x) >= std::abs(step.y);
    double ahead = alongX ? step.x : step.y, aside = alongX ? step.y : step.x;
    double forward = std::copysign(stepLimit, ahead);
    double sideways = std::nearbyint(aside / ahead * forward);
    return alongX ? PlanePoint{forward, sideways} : PlanePoint{sideways, forward};
}

/// Whether another sub-step leads past the end of the step and away from it. The sideways part is rounded, so
/// after hundreds of sub-steps the remaining distance can be long on the other axis.
bool LeadsAstray(PlanePoint rest, PlanePoint sub) {
    bool alongX = std::abs(sub.x) == stepLimit;
    return !IsLong(alongX ? rest.x : rest.y) && IsLong(Less(rest, sub));
}

Step Hundredths(PlanePoint step) {
    return {static_cast<std::int16_t>(std::nearbyint(step.x * 100)),
            static_cast<std::int16_t>(std::nearbyint(step.y * 100))};
}

/// The sub-steps of a long step. The remainder is short.
PlanePoint EncodeSubSteps(PlanePoint rest, std::vector<Step>& steps) {
    for (PlanePoint sub = SubStep(rest); IsLong(rest) && steps.size() < mostSteps; rest = Less(rest, sub)) {
        if (LeadsAstray(rest, sub)) sub = SubStep(rest);
        steps.push_back(Hundredths(sub));
    }
    return rest;
}

}  // namespace

bool EncodeSteps(std::span<const PlanePoint> points, std::vector<Step>& steps) {
    steps.clear();
    for (std::size_t i = 1; i < points.size(); ++i) {
        PlanePoint step = Less(points[i], points[i - 1]);
        if (IsLong(step)) step = EncodeSubSteps(step, steps);
        if (steps.size() >= mostSteps) return false;
        steps.push_back(Hundredths(step));
    }
    return true;
}

}  // namespace vexlator::background
