// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/ArrayPipeline.h"
#include "coords/Backend.h"
#include "coords/ProjContext.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace vexlator::coords {

/// An operation of the projection library, from the grid to longitude and latitude, for whole arrays. Results
/// equal the library's to 1e-10 degrees and 0.01 mm. ArrayPipeline.h has faster arithmetic for some
/// operations.
class ArrayOperation {
public:
    /// Lists the candidate operations of an operation that chooses one for each point by its area, in the
    /// library's order. More than one, or none if there is no choice.
    using ListChoices = std::function<ProjList()>;

    /// None.
    ArrayOperation() = default;
    ArrayOperation(ProjContext& context, ProjObject operation, ListChoices listChoices = nullptr)
        : context_(&context), operation_(std::move(operation)), listChoices_(std::move(listChoices)) {}

    /// Null when there is none.
    PJ* Get() const { return operation_.get(); }
    explicit operator bool() const { return operation_ != nullptr; }

    /// As for Transform() (ProjContext.h).
    void Convert(Direction direction, Coordinates coordinates);

private:
    void Prepare();
    /// Null if the library computes.
    const ArrayPipeline* PipelineFor(Direction direction, const util::PlanePoint& point) const;
    void ConvertRun(const ArrayPipeline& pipeline, Direction direction, Coordinates run);

    ProjContext* context_ = nullptr;
    ProjObject operation_;
    ListChoices listChoices_;
    std::size_t points_ = 0;  ///< number of points so far
    ProjList choices_;
    std::vector<std::optional<ArrayPipeline>> pipelines_;  ///< of each candidate; none before Prepare()
    std::vector<util::PlanePoint> runPoints_;              ///< points of a run, before the conversion
    std::vector<double> runHeights_;
};

}  // namespace vexlator::coords
