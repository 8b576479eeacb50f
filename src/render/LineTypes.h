// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace vexlator::render {

/// A pattern that repeats along a line: dash and gap in turn, and texts that stand in the gaps.
struct LineType {
    std::string_view name;
    std::array<double, 6> lengths{};          ///< dash, gap, dash ...; up to the first 0
    bool onGround = false;                    ///< lengths in ground units, else in millimetres on the picture
    std::array<std::string_view, 2> texts{};  ///< in the gaps, in turn; ground units only
    double Period() const;
};

/// Number of a line type in a pen; 0 is a solid line. Names are compared without letter case; those that are
/// not known are solid.
std::uint8_t LineTypeNumber(std::string_view name);
/// `number` comes from LineTypeNumber() and is not 0.
const LineType& LineTypeOf(std::uint8_t number);

}  // namespace vexlator::render
