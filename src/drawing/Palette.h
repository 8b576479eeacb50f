// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <cstdint>

namespace vexlator::drawing {

/// A colour of a drawing as 0xRRGGBB: a 24-bit value, or one of the palette of CAD programs with 256 colours,
/// whose 7 and 255 are white.
std::uint32_t RgbOf(Colour colour);
/// The colour with that value. Primary colours, black, and dark reds, which would be taken for indices,
/// become those of the palette. Black and white are the palette's 7, which is black on paper.
Colour ColourOfRgb(std::uint32_t rgb);

}  // namespace vexlator::drawing
