// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <string_view>

/// The symbols that drainage surveys need, one unit high, in the colour of their feature.
namespace vexlator::mapbook {

constexpr std::string_view tadpoleSymbol = "Tadpole", arrowSymbol = "Arrow";

/// Its head is at the origin, its tail ends at (0, 1).
void DrawTadpole(drawing::Drawing& symbol);
/// From the origin to its tip at (0, 1).
void DrawArrow(drawing::Drawing& symbol);

}  // namespace vexlator::mapbook
