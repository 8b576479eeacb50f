// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <cstddef>
#include <cstdint>
#include <ogr_api.h>
#include <optional>
#include <string>
#include <vector>

namespace vexlator::gis {

/// The fields of a source's layer as text attributes, without jobColumn.
class SourceAttributes {
public:
    SourceAttributes(OGRFeatureDefnH definition, drawing::Drawing& drawing);

    const std::vector<std::string>& Names() const { return names_; }
    /// For a template: 1 to 99.
    std::vector<int> Widths() const;
    /// Reads the values of a feature. Returns their bytes.
    std::size_t Read(OGRFeatureH feature);
    /// Gives them to the last added entity. `surface` 0: its feature has a single one.
    void AddTo(drawing::Drawing& drawing, std::uint64_t surface, bool isHole);

private:
    drawing::AttributeSet SetFor(drawing::Drawing& drawing, bool isNumbered, bool isHole);

    OGRFeatureDefnH definition_;
    std::vector<std::string> names_, values_;
    std::vector<OGRFieldType> types_;
    std::vector<int> fields_;  ///< their numbers in the definition
    std::optional<drawing::AttributeSet> sets_[4];
};

}  // namespace vexlator::gis
