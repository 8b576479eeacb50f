// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vexlator::background {

/// The data about a feature in the header of an element.
struct FeatureHeader {
    std::int32_t keyHigh = 0, keyLow = 0;
    std::uint8_t classA = 255, classB = 0, classC = 0;
    bool operator==(const FeatureHeader&) const = default;
};

}  // namespace vexlator::background
