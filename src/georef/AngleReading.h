// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "georef/Sentence.h"

#include <string_view>
#include <vector>

namespace vexlator::georef {

/// A part of a typed position that was not understood.
struct NotUnderstood {
    Sentence reason;
};

/// One number of a value, and the mark after it: 'd', 'm' or 's' for degrees, minutes, seconds; 0: none.
struct AnglePart {
    double value = 0;
    bool isNegative = false, hasSign = false, hasDecimals = false;
    char mark = 0;
};

/// One of the two values of a position: a plain number, or an angle in up to three parts.
struct AngleValue {
    std::vector<AnglePart> parts;
    char hemisphere = 0;  ///< N, S, E or W; 0: none

    bool IsPlain() const { return parts.size() == 1 && parts[0].mark == 0; }
    /// With its sign, or the sign of the hemisphere. @throws NotUnderstood: not an angle
    double Degrees() const;
};

/// Splits a typed position into its values; two for a valid position. @throws NotUnderstood
std::vector<AngleValue> ReadAngleValues(std::string_view text);

}  // namespace vexlator::georef
