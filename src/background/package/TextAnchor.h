// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <cstddef>
#include <optional>

namespace vexlator::background {

/// A text of a package with its position, in drawing units.
struct TextPlacement {
    util::PlanePoint insertion;
    double height = 1;      ///< units
    double angle = 0;       ///< radians, counter-clockwise
    int positionCode = -1;  ///< position of the insertion point in the text: -1 (none), 0 to 9
};

/// The reference point from which the device draws a text. Height in tenths of a unit and rotation in tenths
/// of a degree are those of the record, so that writer and device have the same text. Nothing for an unknown
/// position code.
std::optional<util::PlanePoint> TextAnchor(util::PlanePoint insertion, int positionCode, double tenthsHeight,
                                           double tenthsDegrees, std::size_t characters);

}  // namespace vexlator::background
