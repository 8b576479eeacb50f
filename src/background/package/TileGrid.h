// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <cstdint>
#include <optional>
#include <string>

/// Which tile file an element goes to.
namespace vexlator::background {

/// Tile size for an element of that size (the larger side of its box): the default size, ten or a hundred
/// times it. Larger elements go to coarser tiles.
double TileSizeFor(double defaultSize, double elementSize);

/// The number of the tile that holds the anchor: column and row, zero-padded to as many digits as tiles of
/// that size have, one after the other. Nothing when a coordinate is negative or not finite, or when the
/// number does not fit 31 bits.
std::optional<std::int32_t> TileNumber(double tileSize, util::PlanePoint anchor);

/// As in "209300724L.PMM"; the letter is 'A' for areas, 'L' for lines and points, 'T' for texts.
std::string TileFileName(std::int32_t number, char letter);

}  // namespace vexlator::background
