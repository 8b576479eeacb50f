// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/Backend.h"
#include "coords/ProjContext.h"
#include "coords/projection/Projection.h"

#include <optional>

namespace vexlator::coords {

/// An operation of the projection library whose first steps we compute ourselves, many points at once: the
/// transverse Mercator projection, and the shift to another datum when it is one of seven parameters. What
/// follows, such as a grid of shifts, is left to the library.
class ArrayPipeline {
public:
    /// Nothing when the operation begins otherwise, or when our results would differ from the library's by
    /// more than 1e-10 degrees or 0.01 mm anywhere on a net of points over the projection's reach.
    static std::optional<ArrayPipeline> From(ProjContext& context, PJ& operation);

    /// Points that our part does not reach become infinite or not a number, and so do those that the library
    /// cannot convert.
    void Convert(Direction direction, Coordinates coordinates) const;

private:
    explicit ArrayPipeline(const Projection& projection) : projection_(projection) {}

    bool AgreesWith(PJ& peer, double centralMeridian) const;
    /// What Convert() does, but for what is left to the library.
    void ConvertLanes(Direction direction, Lanes& lanes) const;

    Projection projection_;
    ProjObject rest_;  ///< from radians on; null: nothing but to degrees
};

}  // namespace vexlator::coords
