// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/PipelineStep.h"

#include "coords/Proj.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace vexlator::coords {

namespace {

/// Cuts off and returns the text before the separator.
std::string_view CutOff(std::string_view& text, std::string_view separator) {
    std::string_view part = text.substr(0, text.find(separator));
    text.remove_prefix(std::min(text.size(), part.size() + separator.size()));
    return part;
}

/// The defining parameters of an ellipsoid with a name in the projection library, "" for other names.
std::string NamedEllipsoid(const std::string& name) {
    for (const PJ_ELLPS* known = proj_list_ellps(); known->id; ++known)
        if (name == known->id) return std::string(known->major) + " " + known->ell;
    return "";
}

}  // namespace

PipelineStep::PipelineStep(std::string_view text) : text_(text) {
    while (!text.empty()) {
        std::string_view value = CutOff(text, " ");
        std::string_view name = CutOff(value, "=");
        parameters_.emplace(name, value);
    }
}

std::string PipelineStep::TakeText(const std::string& name) {
    auto node = parameters_.extract(name);
    return node ? std::move(node.mapped()) : "";
}

double PipelineStep::TakeNumber(const std::string& name, double ifMissing) {
    auto node = parameters_.extract(name);
    if (!node) return ifMissing;
    const std::string& text = node.mapped();
    double value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) isSound_ = false;
    return value;
}

Ellipsoid PipelineStep::TakeEllipsoid() {
    std::string name = TakeText("ellps");
    if (!name.empty()) {
        PipelineStep named(NamedEllipsoid(name));
        Ellipsoid ellipsoid = named.TakeEllipsoid();
        if (!named.IsUnderstood()) isSound_ = false;
        return ellipsoid;
    }
    double a = TakeNumber("a", 0), b = TakeNumber("b", 0), rf = TakeNumber("rf", 0);
    if (!(a > 0) || (b > 0) == (rf > 0)) isSound_ = false;
    return {a, rf > 0 ? 1 / rf : 1 - b / a};
}

std::vector<PipelineStep> StepsOf(std::string_view definition) {
    std::vector<PipelineStep> steps;
    constexpr std::string_view separator = " step ";
    if (CutOff(definition, separator) != "proj=pipeline") return steps;
    while (!definition.empty()) steps.emplace_back(CutOff(definition, separator));
    return steps;
}

}  // namespace vexlator::coords
