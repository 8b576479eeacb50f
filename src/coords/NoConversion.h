// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/Backend.h"

namespace vexlator::coords {

/// For drawings that are in latitude and longitude already: x is the longitude, y the latitude.
class NoConversion : public Backend {
public:
    void Convert(Direction, Coordinates) override {}
    std::optional<int> GridDecimals() const override { return std::nullopt; }
    std::string Description() const override { return "no conversion, drawings are in degrees"; }
};

}  // namespace vexlator::coords
