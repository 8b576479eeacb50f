// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "coords/frmLatLng.h"
#include "export/LayerLoop.h"
#include "formats/ov2/Ov2Writer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vexlator::exporter {

/// Writes the points of interest of one layer.
class PoiLayer {
public:
    PoiLayer(config::Run& run, coords::frmLatLng& converter, const ExportLayer& layer,
             platform::OutputFile& file);

    void Write(const LayerPart& part);
    /// Returns the number of points.
    std::uint64_t Finish();

private:
    void WriteBatch();

    config::Run& run_;
    coords::frmLatLng& converter_;
    const ExportLayer& layer_;
    formats::Ov2Writer writer_;
    std::vector<util::PlanePoint> places_;  ///< of a batch, converted together
    std::vector<std::string> names_;
    std::uint64_t points_ = 0, unplaced_ = 0;
};

}  // namespace vexlator::exporter
