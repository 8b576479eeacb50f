// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/View.h"

#include <string>

/// Lengths and coordinates in the form of printed maps.
namespace vexlator::render {

/// The largest of 1, 2 and 5 times a power of ten up to the limit.
double RoundStep(double limit);
/// Number of decimals that distinguishes multiples of a step, at most 9.
int DecimalsOf(double step);
/// Whether coordinates are degrees: drawings are in metres of a grid, unless they are within the range of
/// angles.
bool IsInDegrees(const Box& ground);
/// As in "200 m", "5 km" or "0.1°".
std::string LengthText(double length, bool inDegrees);

}  // namespace vexlator::render
