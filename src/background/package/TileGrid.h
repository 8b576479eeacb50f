// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <cstdint>
#include <optional>
#include <string>

/// The assignment of elements to tile files.
namespace vexlator::background {

/// Tile size for an element of that size (the longer side of its box): the default size, or ten or a hundred
/// times it. Larger elements go to coarser tiles.
double TileSizeFor(double defaultSize, double elementSize);

/// The number of the tile with the anchor: column and row, one after the other, zero-padded to the number of
/// digits that tiles of that size need. Nothing if a coordinate is negative or not finite, or if the number
/// does not fit in 31 bits.
std::optional<std::int32_t> TileNumber(double tileSize, util::PlanePoint anchor);

/// As in "209300724L.PMM"; the letter is 'A' for areas, 'L' for lines and points, 'T' for texts.
std::string TileFileName(std::int32_t number, char letter);

}  // namespace vexlator::background
