// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace vexlator::drawing {

/// A repeating pattern along a line: dashes and gaps in turn, and texts in the gaps.
struct LineType {
    std::string_view name;
    std::array<double, 6> lengths{};  ///< dash, gap, dash ...; up to the first 0
    bool onGround = false;            ///< lengths in ground units; false: in millimetres on the picture
    std::array<std::string_view, 2> texts{};  ///< in the gaps, in turn; ground units only
    double Period() const;
};

/// Number of a line type in a pen; 0 is a solid line. Names are compared without letter case. Unknown names
/// are solid.
std::uint8_t LineTypeNumber(std::string_view name);
/// The hatch of standing waters, in the place of a line type: drawings have no other place for it. The
/// outline of an area with it is solid.
constexpr std::string_view concreteHatch = "AR-CONC";
/// `number` comes from LineTypeNumber() and is not 0.
const LineType& LineTypeOf(std::uint8_t number);

}  // namespace vexlator::drawing
