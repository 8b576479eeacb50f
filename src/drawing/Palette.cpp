// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Palette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace vexlator::drawing {

namespace {

constexpr std::size_t paletteSize = 256;
constexpr std::uint32_t whiteRgb = 0xFFFFFF, lowByte = 0xFF;
using Table = std::array<std::uint32_t, paletteSize>;

std::uint32_t Rgb(double red, double green, double blue) {
    auto byte = [](double share) { return static_cast<std::uint32_t>(std::lround(share * 255)); };
    return byte(red) << 16 | byte(green) << 8 | byte(blue);
}

/// The share of one primary colour at a hue. `hue` in turns.
double Primary(double hue, double shift) {
    double distance = std::abs(std::fmod(hue + shift, 1.0) - 0.5);
    return std::min(1.0, std::max(0.0, 6 * distance - 1));
}

/// Colours 10 to 249: 24 hues, each in five degrees of darkness, full and half saturated.
std::uint32_t WheelColour(std::size_t index) {
    static constexpr std::array<double, 5> brightness = {1.0, 0.65, 0.5, 0.3, 0.15};
    std::size_t step = index / 10 - 1;
    double hue = double(step) / 24;
    double value = brightness[index % 10 / 2], paleness = index % 2 == 0 ? 0.0 : 0.5;
    auto share = [&](double shift) { return value * (paleness + (1 - paleness) * Primary(hue, shift)); };
    return Rgb(share(0), share(2.0 / 3), share(1.0 / 3));
}

Table MakeTable() {
    Table table{0, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF, 0xFF00FF, whiteRgb, 0x808080, 0xC0C0C0};
    for (std::size_t i = 10; i < 250; ++i) table[i] = WheelColour(i);
    for (std::size_t i = 250; i < paletteSize; ++i) {
        double grey = 0.2 + 0.16 * double(i - 250);
        table[i] = Rgb(grey, grey, grey);
    }
    return table;
}

const Table& Palette() {
    static const Table table = MakeTable();
    return table;
}

std::uint32_t WithRedAndBlueSwapped(std::uint32_t value) {
    return (value & lowByte) << 16 | (value & 0xFF00) | (value >> 16 & lowByte);
}

/// Programs differ by one in their greys.
bool AreNear(std::uint32_t one, std::uint32_t other) {
    for (int shift : {0, 8, 16})
        if (std::abs(static_cast<int>(one >> shift & lowByte) - static_cast<int>(other >> shift & lowByte)) >
            1)
            return false;
    return true;
}

/// The palette's nearest red, of those without green and blue.
Colour RedOf(std::uint32_t red) {
    constexpr std::array<Colour, 5> reds = {1, 12, 14, 16, 18};
    return *std::ranges::min_element(reds, {}, [&](Colour index) {
        return std::abs(static_cast<int>(Palette()[index] >> 16) - static_cast<int>(red));
    });
}

}  // namespace

std::uint32_t RgbOf(Colour colour) {
    return colour < paletteSize ? Palette()[colour] : WithRedAndBlueSwapped(colour & whiteRgb);
}

Colour ColourOfRgb(std::uint32_t rgb) {
    constexpr Colour firstPrimary = 1, lastPrimary = 9;
    if (rgb == 0) return defaultColour;
    for (Colour index = firstPrimary; index <= lastPrimary; ++index)
        if (AreNear(Palette()[index], rgb)) return index;
    Colour value = WithRedAndBlueSwapped(rgb);
    return value < paletteSize ? RedOf(value) : value;
}

}  // namespace vexlator::drawing
