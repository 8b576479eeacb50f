// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <cstdint>

namespace vexlator::render {

/// A colour as 0xAARRGGBB, not premultiplied. 0 draws nothing.
using Argb = std::uint32_t;
constexpr Argb black = 0xFF000000, white = 0xFFFFFFFF;

constexpr unsigned AlphaOf(Argb colour) {
    return colour >> 24;
}
constexpr Argb WithAlpha(Argb colour, unsigned alpha) {
    return (colour & 0x00FFFFFF) | alpha << 24;
}

/// The colour of a drawing on white paper: the palette of 256 colours, or 24 bits with red lowest. What would
/// be white, the default colour 7 among it, is black, so that nothing disappears.
Argb ColourOnPaper(drawing::Colour colour);
/// The same for lines and letters, which are narrow: what is too light to be seen on paper, as yellow is, is
/// darkened.
Argb LineColourOnPaper(drawing::Colour colour);
/// The same for areas. The default colour, which nobody chose, is a light grey, on which the rest can be
/// seen.
Argb FillColourOnPaper(drawing::Colour colour);

}  // namespace vexlator::render
