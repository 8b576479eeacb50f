// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

/// How a mobile style is drawn. Its line is NAME=TYPE,COLOUR,WIDTH,PATTERN,SYMBOL and whatever follows; every
/// field may be missing or say what nobody knows, and then has its default.
namespace vexlator::background {

enum class MobilePattern : std::uint8_t {
    Solid,
    Dash,
    Dot,
    DashDot,  // lines, and outlines
    None,
    Horizontal,
    Vertical,
    Cross,
    Diagonal,
    DiagonalCross  // areas, beside Solid
};
enum class MobileSymbol : std::uint8_t { Circle, Square, Triangle, Diamond, Cross, Plus, Star };

constexpr std::array<std::string_view, 10> mobilePatterns = {
    "Solid",      "Dash",     "Dot",   "DashDot",  "None",
    "Horizontal", "Vertical", "Cross", "Diagonal", "DiagonalCross"};
constexpr std::array<std::string_view, 7> mobileSymbols = {"Circle", "Square", "Triangle", "Diamond",
                                                           "Cross",  "Plus",   "Star"};

struct MobileStyleLook {
    std::uint32_t rgb = 0;  ///< as in 0xC00000
    double width = 1;       ///< of lines; pixels of 1/96 inch, at most 64
    MobilePattern pattern = MobilePattern::Solid;
    MobileSymbol symbol = MobileSymbol::Circle;
    bool operator==(const MobileStyleLook&) const = default;

    /// Of the symbol, in such pixels: twice the width, but large enough to tell shapes apart.
    double SymbolSize() const;
};

/// The colour of a name of styleColours, as device and windows show it; of "#RRGGBB"; else black.
std::uint32_t RgbOfColour(std::string_view colour);
/// `fields`: what stands behind "=".
MobileStyleLook LookOfFields(std::string_view fields);

}  // namespace vexlator::background
