// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "coords/frmLatLng.h"
#include "drawing/Drawing.h"
#include "export/LayerLoop.h"
#include "export/LeftOutEntities.h"
#include "formats/kml/KmlWriter.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// Settings of the KML export, from [GENERAL], [PHOTO] and [KML] of gv.ini.
struct KmlSettings {
    std::string folder;        ///< folder of the export; absolute and native, like photographs' full paths
    bool web = false;          ///< photographs are on a web server, with thumbnails beside them
    std::string photoAddress;  ///< for web: text before a photograph's name; encoded, ends in "/" or empty
};

/// Writes the placemarks of one layer: its points, symbols and polylines, with positions in degrees.
class KmlLayer {
public:
    KmlLayer(config::Run& run, const KmlSettings& settings, coords::frmLatLng& converter,
             const ExportLayer& layer, formats::KmlWriter& writer);

    void Write(const LayerPart& part);
    /// Returns the number of placemarks.
    std::uint64_t Finish();

private:
    /// One entity of a batch whose positions are converted together.
    struct Item {
        drawing::EntityView entity;
        std::size_t positions;
        bool closed;
    };

    void Gather(drawing::EntityView entity);
    void CloseRing(std::size_t begin);
    void ConvertBatch();
    void WriteBatch();
    void WriteDescription(drawing::EntityView entity);
    void CountReplaced(drawing::EntityView entity, std::size_t value, std::uint64_t characters);
    void WritePhoto(std::string_view value);
    void WriteGeometry(const Item& item, std::size_t begin);

    config::Run& run_;
    const KmlSettings& settings_;
    coords::frmLatLng& converter_;
    const ExportLayer& layer_;
    formats::KmlWriter& writer_;
    std::vector<Item> items_;
    std::vector<util::PlanePoint> points_;
    std::vector<double> heights_;
    LeftOutEntities leftOut_;
    std::uint64_t placemarks_ = 0, unplaced_ = 0;
};

}  // namespace vexlator::exporter
