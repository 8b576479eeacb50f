// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexlator::importer {

/// Closes the polylines of a drawing by their label.
class FeatureCloser {
public:
    explicit FeatureCloser(drawing::Drawing& drawing) : drawing_(drawing) {}

    /// Tells of a polyline that was added with its label.
    void Added(drawing::Entity polyline, std::string_view label);
    /// Closes every polyline that has the label, and fills it or not.
    void CloseAll(const std::string& label, bool fill);

private:
    struct Labelled {
        std::vector<std::uint32_t> polylines;
        std::size_t closed = 0;  ///< how many of them are as the last call wanted them
        bool filled = false;
    };
    void IndexLabels();

    drawing::Drawing& drawing_;
    std::unordered_map<std::string, Labelled> byLabel_;
    bool indexed_ = false;  ///< most jobs close nothing, so that the index is made when it is first needed
};

}  // namespace vexlator::importer
