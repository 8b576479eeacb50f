// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "coords/frmLatLng.h"
#include "drawing/Drawing.h"
#include "export/LayerLoop.h"
#include "export/LeftOutEntities.h"
#include "export/shapefile/LayerTable.h"
#include "export/shapefile/ShapefileSettings.h"
#include "formats/shapefile/ShapefileWriter.h"
#include "platform/OutputSet.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// The shapefile of one layer while it is written: geometry, index and attribute table.
class ShapefileLayer {
public:
    /// `converter` may be null: coordinates are then written as they are.
    ShapefileLayer(config::Run& run, const ShapefileSettings& settings, coords::frmLatLng* converter,
                   const ExportLayer& layer, std::string_view targetPath, platform::OutputSet& files);

    /// Writes entities; those that are no point, symbol or polyline are left out.
    void Write(const LayerPart& part);
    /// Ends the files. Returns how many records they hold.
    std::uint64_t Finish();
    /// Whether what was written is in degrees: not so when the conversion covered none of it.
    bool IsInDegrees() const { return converter_ && (unconverted_ == 0 || unconverted_ < convertible_); }

private:
    /// One entity of a batch whose coordinates are gathered to be converted at once.
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
    std::uint64_t convertible_ = 0, unconverted_ = 0;  ///< vertices, when there is a converter
};

}  // namespace vexlator::exporter
