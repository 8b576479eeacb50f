// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <ogr_api.h>
#include <optional>
#include <string>

namespace vexlator::gis {

/// A text as GDAL's style of a feature says it. Angles in radians, sizes in ground units.
struct Label {
    std::string text, font = {};
    double height = 0, angle = 0;
    double shiftX = 0, shiftY = 0;  ///< along the text and across it
    int anchor = 1;  ///< GDAL's: 1 left of the baseline, 2 and 3 centre and right, 4 to 12 further rows
    std::string colour = {};  ///< #RRGGBB or #RRGGBBAA
};

/// A line's or area's look.
struct Look {
    std::string pen, brush;  ///< colours; "" without
    double width = 0;        ///< of the pen; of CAD drawings in millimetres on paper
};

std::optional<Label> LabelOf(OGRFeatureH feature);
Look LookOf(OGRFeatureH feature);

}  // namespace vexlator::gis
