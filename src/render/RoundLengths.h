// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/View.h"

#include <string>

/// Lengths and coordinates as people read them on a map.
namespace vexlator::render {

/// The largest of 1, 2 and 5 times a power of ten that is not above the limit.
double RoundStep(double limit);
/// How many decimals tell multiples of a step apart, at most 9.
int DecimalsOf(double step);
/// Drawings of this trade are in metres of a grid; what lies within the range of angles is in degrees.
bool IsInDegrees(const Box& ground);
/// As in "200 m", "5 km" or "0.1°".
std::string LengthText(double length, bool inDegrees);

}  // namespace vexlator::render
