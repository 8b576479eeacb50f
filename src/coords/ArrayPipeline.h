// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/Backend.h"
#include "coords/ProjContext.h"
#include "coords/projection/Projection.h"

#include <optional>

namespace vexlator::coords {

/// An operation of the projection library whose first steps we compute ourselves, many points at once: the
/// transverse Mercator projection, and a datum shift with seven parameters. The library computes the rest,
/// such as a grid of shifts.
class ArrayPipeline {
public:
    /// Nothing if the operation begins with other steps, or if our results would differ from the library's by
    /// more than 1e-10 degrees or 0.01 mm on a net of points over the range of the projection.
    static std::optional<ArrayPipeline> From(ProjContext& context, PJ& operation);

    /// Points out of range of our part, and points that the library cannot convert, become infinite or NaN.
    void Convert(Direction direction, Coordinates coordinates) const;

private:
    explicit ArrayPipeline(const Projection& projection) : projection_(projection) {}

    bool AgreesWith(PJ& peer, double centralMeridian) const;
    /// Convert() without the library's part.
    void ConvertLanes(Direction direction, Lanes& lanes) const;

    Projection projection_;
    ProjObject rest_;  ///< from radians on; null: only a conversion to degrees
};

}  // namespace vexlator::coords
