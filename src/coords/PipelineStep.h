// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/projection/Projection.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::coords {

/// One step of an operation as the projection library describes it, like "inv proj=tmerc lat_0=49 lon_0=-2
/// ellps=airy". Parameters are removed one after the other.
class PipelineStep {
public:
    explicit PipelineStep(std::string_view text);

    const std::string& Text() const { return text_; }
    bool TakeFlag(const std::string& name) { return !parameters_.extract(name).empty(); }
    std::string TakeText(const std::string& name);
    double TakeNumber(const std::string& name, double ifMissing);
    Ellipsoid TakeEllipsoid();
    /// Whether all removed parameters were valid, and none is left.
    bool IsUnderstood() const { return isSound_ && parameters_.empty(); }

private:
    std::string text_;
    std::map<std::string, std::string> parameters_;
    bool isSound_ = true;
};

/// The steps of "proj=pipeline step ... step ..."; none for other texts, or if the steps share parameters.
std::vector<PipelineStep> StepsOf(std::string_view definition);

}  // namespace vexlator::coords
