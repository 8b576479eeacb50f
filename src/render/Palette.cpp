// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/Palette.h"

#include <array>
#include <cmath>

namespace vexlator::render {

namespace {

constexpr std::size_t paletteSize = 256;
using Palette = std::array<Argb, paletteSize>;

Argb Rgb(double red, double green, double blue) {
    auto byte = [](double share) { return static_cast<Argb>(std::lround(share * 255)); };
    return black | byte(red) << 16 | byte(green) << 8 | byte(blue);
}

/// The share of one primary colour at a hue. `hue` in turns.
double Primary(double hue, double shift) {
    double distance = std::abs(std::fmod(hue + shift, 1.0) - 0.5);
    return std::min(1.0, std::max(0.0, 6 * distance - 1));
}

/// Colours 10 to 249: 24 hues, each in five degrees of darkness, full and half saturated.
Argb WheelColour(std::size_t index) {
    static constexpr std::array<double, 5> brightness = {1.0, 0.65, 0.5, 0.3, 0.15};
    std::size_t step = index / 10 - 1;
    double hue = double(step) / 24;
    double value = brightness[index % 10 / 2], paleness = index % 2 == 0 ? 0.0 : 0.5;
    auto share = [&](double shift) { return value * (paleness + (1 - paleness) * Primary(hue, shift)); };
    return Rgb(share(0), share(2.0 / 3), share(1.0 / 3));
}

Palette MakePalette() {
    Palette palette{black,      0xFFFF0000, 0xFFFFFF00, 0xFF00FF00, 0xFF00FFFF,
                    0xFF0000FF, 0xFFFF00FF, white,      0xFF808080, 0xFFC0C0C0};
    for (std::size_t i = 10; i < 250; ++i) palette[i] = WheelColour(i);
    for (std::size_t i = 250; i < paletteSize; ++i) {
        double grey = 0.2 + 0.16 * double(i - 250);
        palette[i] = Rgb(grey, grey, grey);
    }
    return palette;
}

Argb SwapRedAndBlue(drawing::Colour colour) {
    return black | (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

}  // namespace

Argb ColourOnPaper(drawing::Colour colour) {
    static const Palette palette = MakePalette();
    Argb shown = colour < paletteSize ? palette[colour] : SwapRedAndBlue(colour);
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
