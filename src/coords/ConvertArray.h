// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/Backend.h"

#include <cstddef>
#include <optional>

namespace vexlator::coords {

/// How results are rounded; nothing: not at all.
struct Decimals {
    std::optional<int> plane, height;
};

/// Converts in place, however many points there are, in bounded memory. Points that cannot be converted keep
/// what they hold. Returns how many those are.
std::size_t ConvertArray(Backend& backend, Direction direction, Coordinates coordinates, Decimals decimals);

}  // namespace vexlator::coords
