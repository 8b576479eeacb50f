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

/// The colour of a drawing on white paper: from the palette of 256 colours, or 24 bits with red lowest.
/// White, including the default colour 7, becomes black, so that nothing disappears.
Argb ColourOnPaper(drawing::Colour colour);
/// The same for lines and letters, which are narrow. Colours too light to be visible on paper, such as
/// yellow, are darkened.
Argb LineColourOnPaper(drawing::Colour colour);
/// The same for areas. The default colour, which nobody chose, becomes a light grey that does not hide the
/// rest.
Argb FillColourOnPaper(drawing::Colour colour);

}  // namespace vexlator::render
