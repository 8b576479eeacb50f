// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/Backend.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vexlator::coords {

/// How results are rounded; nothing: not at all.
struct Decimals {
    std::optional<int> plane, height;
};

/// Converts in place, however many points there are, in bounded memory. Points that cannot be converted keep
/// what they hold. Returns how many those are.
std::size_t ConvertArray(Backend& backend, Direction direction, Coordinates coordinates, Decimals decimals);

/// The points' positions in an order that keeps neighbours in the plane together. Grids are read in tiles,
/// few of which stay unpacked: points in the order of a table can cost a tile each, in this order a tile
/// serves thousands.
std::vector<std::uint32_t> SpatialOrder(std::span<const util::PlanePoint> points);

}  // namespace vexlator::coords
