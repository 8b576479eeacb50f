// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/Records.h"
#include "util/Geometry.h"

#include <span>
#include <vector>

namespace vexlator::background {

/// One pair of a line element holds a step below this many units on either axis.
constexpr double stepLimit = 320;
/// The most steps of a line element: its 16-bit count includes the first vertex.
constexpr std::size_t mostSteps = 32766;

/// The steps between the vertices of a line, each rounded separately to hundredths, ties to even. A step of
/// 320 units or more on an axis is divided into sub-steps. False if there would be more than `mostSteps`; the
/// steps are then invalid. At least one point.
bool EncodeSteps(std::span<const util::PlanePoint> points, std::vector<Step>& steps);

}  // namespace vexlator::background
