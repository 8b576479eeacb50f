// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/ArrayOperation.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace vexlator::coords {

namespace {

/// Number of points converted in one go: a copy of them stays in the cache.
constexpr std::size_t mostInRun = 4096;

/// For fewer points, the library's conversion takes less time than the preparation.
constexpr std::size_t manyPoints = 20000;

}  // namespace

void ArrayOperation::Prepare() {
    if (listChoices_) choices_ = listChoices_();
    int count = choices_ ? proj_list_get_count(choices_.get()) : 1;
    if (count == 1) choices_.reset();
    for (int i = 0; i < count; ++i) {
        ProjObject choice(choices_ ? proj_list_get(context_->Get(), choices_.get(), i) : nullptr);
        pipelines_.push_back(ArrayPipeline::From(*context_, choice ? *choice : *operation_));
    }
}

const ArrayPipeline* ArrayOperation::PipelineFor(Direction direction, const util::PlanePoint& point) const {
    std::size_t choice = 0;
    if (choices_)  // no suggestion (-1) becomes a large number
        choice = static_cast<std::size_t>(proj_get_suggested_operation(
            context_->Get(), choices_.get(), ProjDirection(direction), proj_coord(point.x, point.y, 0, 0)));
    return choice < pipelines_.size() && pipelines_[choice] ? &*pipelines_[choice] : nullptr;
}

void ArrayOperation::Convert(Direction direction, Coordinates coordinates) {
    std::size_t count = coordinates.points.size();
    points_ += count;
    if (points_ >= manyPoints && pipelines_.empty()) Prepare();
    for (std::size_t begin = 0, end = 0; begin < count; begin = end) {
        const ArrayPipeline* pipeline = PipelineFor(direction, coordinates.points[begin]);
        std::size_t most = std::min(count, begin + mostInRun);
        for (end = begin + 1; end < most; ++end)
            if (PipelineFor(direction, coordinates.points[end]) != pipeline) break;
        Coordinates run = coordinates.Part(begin, end - begin);
        if (pipeline)
            ConvertRun(*pipeline, direction, run);
        else
            Transform(*operation_, direction, run);
    }
}

void ArrayOperation::ConvertRun(const ArrayPipeline& pipeline, Direction direction, Coordinates run) {
    runPoints_.assign(run.points.begin(), run.points.end());
    runHeights_.assign(run.heights.begin(), run.heights.end());
    pipeline.Convert(direction, run);
    for (std::size_t i = 0; i < runPoints_.size(); ++i) {
        if (std::isfinite(run.points[i].x) && std::isfinite(run.points[i].y)) continue;
        run.points[i] = runPoints_[i];
        if (!runHeights_.empty()) run.heights[i] = runHeights_[i];
        Transform(*operation_, direction, run.Part(i, 1));
    }
}

}  // namespace vexlator::coords
