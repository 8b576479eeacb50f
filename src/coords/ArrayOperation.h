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

/// An operation of the projection library, from the grid to longitude and latitude, for whole arrays: the
/// library's results, to 1e-10 degrees and 0.01 mm, by faster arithmetic where we have it (ArrayPipeline.h).
class ArrayOperation {
public:
    /// Lists the operations from which one takes for each point the one made for its place, in the library's
    /// order; more than one, or none where there is no choice.
    using ListChoices = std::function<ProjList()>;

    /// None.
    ArrayOperation() = default;
    ArrayOperation(ProjContext& context, ProjObject operation, ListChoices listChoices = nullptr)
        : context_(&context), operation_(std::move(operation)), listChoices_(std::move(listChoices)) {}

    /// Null when there is none.
    PJ* Get() const { return operation_.get(); }
    explicit operator bool() const { return operation_ != nullptr; }

    /// As Transform() does (ProjContext.h).
    void Convert(Direction direction, Coordinates coordinates);

private:
    void Prepare();
    /// Null where the library computes.
    const ArrayPipeline* PipelineFor(Direction direction, const util::PlanePoint& point) const;
    void ConvertRun(const ArrayPipeline& pipeline, Direction direction, Coordinates run);

    ProjContext* context_ = nullptr;
    ProjObject operation_;
    ListChoices listChoices_;
    std::size_t points_ = 0;  ///< that have come
    ProjList choices_;
    std::vector<std::optional<ArrayPipeline>> pipelines_;  ///< of each choice; none before Prepare()
    std::vector<util::PlanePoint> runPoints_;              ///< of a run, before it is converted
    std::vector<double> runHeights_;
};

}  // namespace vexlator::coords
