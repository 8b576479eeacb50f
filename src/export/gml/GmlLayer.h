// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"
#include "export/ColumnMatch.h"
#include "export/LayerLoop.h"
#include "export/LeftOutEntities.h"
#include "formats/gml/GmlWriter.h"
#include "util/Geometry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vexlator::exporter {

/// Writes the features of one layer: all entities but texts and those of unknown kinds.
class GmlLayer {
public:
    GmlLayer(config::Run& run, const ExportLayer& layer, const drawing::Drawing& drawing, std::string element,
             formats::GmlWriter& writer);

    void Write(const LayerPart& part);
    /// Returns the number of features.
    std::uint64_t Finish();
    /// The layer's type of features; complete after Finish().
    const formats::GmlFeatureType& Type() const { return type_; }

private:
    void AddValues(drawing::EntityView entity);
    void AddPlace(drawing::EntityView entity);
    void AddPolyline(drawing::EntityView entity);
    void AddArc(drawing::EntityView entity, formats::GmlShape shape);
    void AddShape(formats::GmlShape shape, std::span<const util::PlanePoint> positions,
                  std::span<const double> heights);

    config::Run& run_;
    const ExportLayer& layer_;
    formats::GmlWriter& writer_;
    std::vector<std::string> columns_;  ///< names of attributes
    formats::GmlFeatureType type_;
    std::vector<formats::GmlWriter::Element> elements_;  ///< of the columns
    ColumnMatch match_;
    LeftOutEntities leftOut_;
    std::vector<util::PlanePoint> ring_;  ///< kept, as its memory is
    std::vector<double> ringHeights_;
    std::uint64_t features_ = 0, unplaced_ = 0;
};

}  // namespace vexlator::exporter
