// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/Backend.h"

namespace vexlator::coords {

/// For drawings that are already in latitude and longitude: x is the longitude, y the latitude.
class NoConversion : public Backend {
public:
    void Convert(Direction, Coordinates coordinates) override {
        for (util::PlanePoint& point : coordinates.points)
            if (!IsDegrees(point)) point = {HUGE_VAL, HUGE_VAL};
    }
    std::optional<int> GridDecimals() const override { return std::nullopt; }
    std::string Description() override { return "no conversion, drawings are in degrees"; }
};

}  // namespace vexlator::coords
