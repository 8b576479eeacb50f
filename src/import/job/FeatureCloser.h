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

/// Closes the polylines with a given label.
class FeatureCloser {
public:
    explicit FeatureCloser(drawing::Drawing& drawing) : drawing_(drawing) {}

    /// Registers a polyline that was added with its label.
    void Added(drawing::Entity polyline, std::string_view label);
    /// Closes every polyline that has the label, and fills it or not. False when none has it.
    bool CloseAll(const std::string& label, bool fill);

private:
    struct Labelled {
        std::vector<std::uint32_t> polylines;
        std::size_t closed = 0;  ///< number of polylines in the state of the last call
        bool filled = false;
    };
    void IndexLabels();

    drawing::Drawing& drawing_;
    std::unordered_map<std::string, Labelled> byLabel_;
    bool indexed_ = false;  ///< made at first use, because most jobs close nothing
};

}  // namespace vexlator::importer
