// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "georef/PointEntries.h"
#include "georef/Sentence.h"

#include <optional>
#include <vector>

namespace vexlator::georef {

/// How control points fit, as far as they are complete.
struct Assessment {
    std::optional<Fit> fit;
    /// For people: the fit in words and what is odd about it, or why there is none.
    Sentence said;
    /// One for each entry; nothing for those that are not complete. Those that are left out have theirs too,
    /// as they show what a fit without them is worth.
    std::vector<std::optional<Residual>> residuals;
    int worst =
        0;  ///< the number of the point that fits worst; 0: none stands out, as too few points are used
};

Assessment Assess(const PointEntries& entries, Fit::Order order);

}  // namespace vexlator::georef
