// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Session.h"
#include "coords/frmLatLng.h"
#include "drawing/Drawing.h"
#include "export/LayerLoop.h"
#include "export/csv/CsvSettings.h"
#include "formats/csv/CsvWriter.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// The rows of one layer while they are written.
class CsvLayer {
public:
    /// `converter` is there when points are to be in latitude and longitude, else null.
    CsvLayer(config::Session& session, const CsvSettings& settings, coords::frmLatLng* converter,
             const ExportLayer& layer, formats::CsvWriter& writer);

    /// Writes the header and a row for each point, symbol and polyline. Returns how many rows.
    std::uint64_t Write(ui::FormView& view);

private:
    /// A point as it is to be written.
    struct Converted {
        util::PlanePoint point;
        double height;
        bool inDegrees;
    };

    void AddHeader();
    std::uint64_t AddRows(std::span<const std::uint32_t> entities);
    /// Makes `converted_` hold the points among the entities.
    void Convert(std::span<const std::uint32_t> entities);
    void AddPoint(drawing::Entity entity);
    void AddPolyline(drawing::Entity entity);
    void AddRow(std::string_view geometry, const formats::CsvCoordinates& coordinates,
                const drawing::XProperties& properties);
    void AddValues(const drawing::XProperties& properties);
    void AddValue(std::string_view value);
    void Report();

    config::Session& session_;
    const CsvSettings& settings_;
    coords::frmLatLng* converter_;
    const ExportLayer& layer_;
    formats::CsvWriter& writer_;
    drawing::XProperties columns_;  ///< of the entity that has most
    std::vector<Converted> converted_;
    std::size_t nextConverted_ = 0;
    std::uint64_t unconverted_ = 0;
    std::uint64_t replacedBefore_;         ///< characters replaced in the file before this layer
    std::vector<std::uint64_t> replaced_;  ///< characters, by column
};

}  // namespace vexlator::exporter
