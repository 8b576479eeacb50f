// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/HeaderNames.h"

#include "platform/AsciiCase.h"

#include <algorithm>
#include <unordered_map>

namespace vexlator::exporter {

namespace {

/// Attribute names of the first entity, then the additional names of others.
class AllNames {
public:
    void Add(std::vector<std::string> names) {
        std::unordered_map<std::string, std::size_t> times;  // an entity can have a name several times
        for (std::string& name : names) {
            std::string key = platform::LowerAscii(name);
            if (++times[key] <= times_[key]) continue;
            ++times_[key];
            names_.push_back(std::move(name));
        }
    }
    std::vector<std::string> Take() { return std::move(names_); }

private:
    std::vector<std::string> names_;
    std::unordered_map<std::string, std::size_t> times_;
};

}  // namespace

std::vector<std::string> HeaderNames(const ExportLayer& layer, const drawing::Drawing& drawing, bool byName) {
    auto count = [&](drawing::AttributeSet set) { return drawing.attributeCount(set); };
    drawing::AttributeSet richest = *std::ranges::max_element(layer.sets, {}, count);
    AllNames names;
    names.Add(drawing.attributeNames(richest));
    if (byName)
        for (drawing::AttributeSet set : layer.sets) names.Add(drawing.attributeNames(set));
    return names.Take();
}

}  // namespace vexlator::exporter
