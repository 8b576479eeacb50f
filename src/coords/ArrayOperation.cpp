// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/ArrayOperation.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace vexlator::coords {

namespace {

/// Points that are converted in one go: few enough that a copy of them stays in the cache.
constexpr std::size_t mostInRun = 4096;

}  // namespace

ArrayOperation::ArrayOperation(ProjContext& context, ProjObject operation, ProjList choices)
    : context_(context.Get()), operation_(std::move(operation)), choices_(std::move(choices)) {
    if (!operation_) return;
    int count = choices_ ? proj_list_get_count(choices_.get()) : 1;
    if (count == 1) choices_.reset();
    for (int i = 0; i < count; ++i) {
        ProjObject choice(choices_ ? proj_list_get(context_, choices_.get(), i) : nullptr);
        pipelines_.push_back(ArrayPipeline::From(context, choice ? *choice : *operation_));
    }
}

const ArrayPipeline* ArrayOperation::PipelineFor(Direction direction, const util::PlanePoint& point) const {
    int choice = 0;
    if (choices_)
        choice = proj_get_suggested_operation(context_, choices_.get(), ProjDirection(direction),
                                              proj_coord(point.x, point.y, 0, 0));
    return choice >= 0 && pipelines_[choice] ? &*pipelines_[choice] : nullptr;
}

void ArrayOperation::Convert(Direction direction, Coordinates coordinates) {
    std::size_t count = coordinates.points.size();
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
    points_.assign(run.points.begin(), run.points.end());
    heights_.assign(run.heights.begin(), run.heights.end());
    pipeline.Convert(direction, run);
    for (std::size_t i = 0; i < points_.size(); ++i) {
        if (std::isfinite(run.points[i].x) && std::isfinite(run.points[i].y)) continue;
        run.points[i] = points_[i];
        if (!heights_.empty()) run.heights[i] = heights_[i];
        Transform(*operation_, direction, run.Part(i, 1));
    }
}

}  // namespace vexlator::coords
