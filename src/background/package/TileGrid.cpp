// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/TileGrid.h"

#include <cmath>
#include <limits>

namespace vexlator::background {

namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();

/// Ten to the power of the number of digits of a row.
std::int64_t RowScale(double tileSize, std::int64_t row) {
    std::int64_t scale = tileSize <= 999 ? 100'000 : tileSize <= 9999 ? 10'000 : 1'000;
    while (scale <= row) scale *= 10;
    return scale;
}

}  // namespace

double TileSizeFor(double defaultSize, double elementSize) {
    if (elementSize > 2 * defaultSize) return defaultSize * 100;
    return elementSize > defaultSize / 2 ? defaultSize * 10 : defaultSize;
}

std::optional<std::int32_t> TileNumber(double tileSize, util::PlanePoint anchor) {
    auto fits = [](double index) { return index >= 0 && index <= static_cast<double>(largest); };
    double column = std::floor(anchor.x / tileSize), row = std::floor(anchor.y / tileSize);
    if (!fits(column) || !fits(row)) return std::nullopt;
    auto high = static_cast<std::int64_t>(column), low = static_cast<std::int64_t>(row);
    std::int64_t scale = RowScale(tileSize, low);
    if (high > (largest - low) / scale) return std::nullopt;
    return static_cast<std::int32_t>(high * scale + low);
}

std::string TileFileName(std::int32_t number, char letter) {
    return std::to_string(number) + letter + ".PMM";
}

}  // namespace vexlator::background
