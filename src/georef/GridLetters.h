// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <optional>
#include <string_view>

namespace vexlator::georef {

/// A square of a national grid.
struct GridSquare {
    util::PlanePoint corner;  ///< south-west
    double side = 0;          ///< metres
};

/// "TG 51409 13177", "TG5140913177", "O 159 346" and the like, in any letter case; nothing for any other
/// text.
std::optional<GridSquare> ReadGridLetters(std::string_view text);

}  // namespace vexlator::georef
