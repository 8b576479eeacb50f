// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace vexlator::georef {

constexpr std::size_t mostTerms = 6;
using TermRow = std::array<double, mostTerms>;

/// One observation: the factors of the unknown terms, and the expected sum for each of two sets of terms.
struct Observation {
    TermRow factors{};
    double first = 0, second = 0;
};

/// Two sets of terms.
struct Terms {
    TermRow first{}, second{};
};

/// The terms, the first `count` of each set, with the smallest sum of squares. Factors should have a
/// magnitude of about 1. Nothing if the observations do not determine the terms.
std::optional<Terms> SolveLeastSquares(std::vector<Observation> observations, std::size_t count);

}  // namespace vexlator::georef
