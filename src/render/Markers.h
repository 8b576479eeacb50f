// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

class QPainterPath;

/// What points and areas can be drawn with beside plain dots and colours.
namespace vexlator::render {

/// The shape of a point.
enum class Marker : std::uint8_t { Usual, Circle, Square, Triangle, Diamond, Cross, Plus, Star };

/// What an area is filled with.
enum class Hatch : std::uint8_t { Solid, Horizontal, Vertical, Cross, Diagonal, DiagonalCross };

/// The outline of a shape in a square of one unit around the origin, y downwards. Usual is a circle.
QPainterPath MarkerPath(Marker marker);

}  // namespace vexlator::render
