// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/Palette.h"

#include "drawing/Palette.h"

#include <algorithm>
#include <cmath>

namespace vexlator::render {

namespace {

Argb Rgb(double red, double green, double blue) {
    auto byte = [](double share) { return static_cast<Argb>(std::lround(share * 255)); };
    return black | byte(red) << 16 | byte(green) << 8 | byte(blue);
}

}  // namespace

Argb ColourOnPaper(drawing::Colour colour) {
    Argb shown = black | drawing::RgbOf(colour);
    return shown == white ? black : shown;
}

Argb LineColourOnPaper(drawing::Colour colour) {
    constexpr double lightest = 150;  // of 255
    Argb shown = ColourOnPaper(colour);
    unsigned red = shown >> 16 & 0xFF, green = shown >> 8 & 0xFF, blue = shown & 0xFF;
    double share = lightest / std::max(0.299 * red + 0.587 * green + 0.114 * blue, lightest);
    return Rgb(red * share / 255, green * share / 255, blue * share / 255);
}

Argb FillColourOnPaper(drawing::Colour colour) {
    constexpr Argb lightGrey = 0xFFD8D8D8;
    return colour == drawing::defaultColour ? lightGrey : ColourOnPaper(colour);
}

}  // namespace vexlator::render
