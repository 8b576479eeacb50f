// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/Backend.h"

#include <cstddef>
#include <optional>

namespace vexlator::coords {

/// Rounding of the results; nothing: no rounding.
struct Decimals {
    std::optional<int> plane, height;
};

/// Converts any number of points in place, in bounded memory. Points that cannot be converted keep their
/// values. Returns the number of these points.
std::size_t ConvertArray(Backend& backend, Direction direction, Coordinates coordinates, Decimals decimals);

}  // namespace vexlator::coords
