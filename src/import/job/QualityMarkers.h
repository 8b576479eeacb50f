// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <string_view>

namespace vexlator::importer {

/// Circles on the layer $QA that show the quality of GPS positions.
class QualityMarkers {
public:
    /// Makes the layer the current one.
    explicit QualityMarkers(drawing::Drawing& drawing);

    /// `quality` is "satellites/DOP/differential mode/accuracy". The accuracy is one number, the real-time
    /// accuracy, or two: the second, in brackets, is the post-processed accuracy. Any other text gives no
    /// marker. The radius is the post-processed accuracy, else the real-time one, in drawing units.
    void AddQualityMarker(const drawing::Point& position, std::string_view quality,
                          std::string_view pointNumber, std::string_view feature);

private:
    drawing::Drawing& drawing_;
    drawing::AttributeSet realTime_, postProcessed_;
};

}  // namespace vexlator::importer
