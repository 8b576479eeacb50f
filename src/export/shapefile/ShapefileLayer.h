// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "coords/frmLatLng.h"
#include "drawing/Drawing.h"
#include "export/LayerLoop.h"
#include "export/LeftOutEntities.h"
#include "export/shapefile/ShapefileSettings.h"
#include "export/table/LayerTable.h"
#include "formats/shapefile/ShapefileWriter.h"
#include "platform/OutputSet.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// Writes the shapefile of one layer: geometry, index and attribute table.
class ShapefileLayer {
public:
    /// `converter` may be null: then coordinates are not converted.
    ShapefileLayer(config::Run& run, const ShapefileSettings& settings, coords::frmLatLng* converter,
                   const ExportLayer& layer, std::string_view targetPath, platform::OutputSet& files);

    /// Writes entities, except those that are no point, symbol or polyline.
    void Write(const LayerPart& part);
    /// Ends the files. Returns the number of records.
    std::uint64_t Finish();
    /// Whether the coordinates are in degrees: false if the conversion covered none of them.
    bool IsInDegrees() const { return converter_ && (unconverted_ == 0 || unconverted_ < convertible_); }

private:
    /// One entity of a batch whose coordinates are converted together.
    struct Item {
        drawing::EntityView entity;
        bool polyline, polygon;
        std::size_t points;
    };

    void Gather(drawing::EntityView entity);
    void GatherPolyline(drawing::EntityView entity);
    void WriteBatch();
    void ConvertBatch();
    void Report();

    config::Run& run_;
    const ExportLayer& layer_;
    coords::frmLatLng* converter_;
    formats::ShapefileWriter shapes_;
    LayerTable table_;
    std::vector<Item> items_;
    std::vector<util::PlanePoint> points_;
    LeftOutEntities leftOut_;
    std::uint64_t convertible_ = 0, unconverted_ = 0;  ///< vertices, if there is a converter
};

}  // namespace vexlator::exporter
