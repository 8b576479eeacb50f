// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/ArrayPipeline.h"
#include "coords/Backend.h"
#include "coords/ProjContext.h"

#include <optional>
#include <vector>

namespace vexlator::coords {

/// An operation of the projection library, from the grid to longitude and latitude, for whole arrays: the
/// library's results, to 1e-10 degrees and 0.01 mm, by faster arithmetic where we have it (ArrayPipeline.h).
class ArrayOperation {
public:
    /// None.
    ArrayOperation() = default;
    /// `choices`: the operations from which `operation` takes for each point the one made for its place, in
    /// the library's order; null or one when there is no choice.
    ArrayOperation(ProjContext& context, ProjObject operation, ProjList choices = nullptr);

    explicit operator bool() const { return operation_ != nullptr; }

    /// As Transform() does (ProjContext.h).
    void Convert(Direction direction, Coordinates coordinates);

private:
    /// Null where the library computes.
    const ArrayPipeline* PipelineFor(Direction direction, const util::PlanePoint& point) const;
    void ConvertRun(const ArrayPipeline& pipeline, Direction direction, Coordinates run);

    PJ_CONTEXT* context_ = nullptr;
    ProjObject operation_;
    ProjList choices_;
    std::vector<std::optional<ArrayPipeline>> pipelines_;  ///< of each choice
    std::vector<util::PlanePoint> points_;                 ///< of a run, before it is converted
    std::vector<double> heights_;
};

}  // namespace vexlator::coords
