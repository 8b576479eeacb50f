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
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// The rows of one layer while they are written.
class CsvLayer {
public:
    /// `converter` is there when points are to be in latitude and longitude, else null. `isFirst`: no other
    /// layer stands before this one in the file.
    CsvLayer(config::Session& session, const CsvSettings& settings, coords::frmLatLng* converter,
             const ExportLayer& layer, formats::CsvWriter& writer, bool isFirst);

    /// Writes a row for each point, symbol and polyline, and the header before the first part.
    void Write(const LayerPart& part);
    /// Returns how many rows were written.
    std::uint64_t Finish();

private:
    /// A point as it is to be written.
    struct Converted {
        util::PlanePoint point;
        double height;
        bool inDegrees;
    };

    void AddHeader();
    void AddRows(const LayerPart& part);
    /// Makes `converted_` hold the points among the entities.
    void Convert(const LayerPart& part);
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
    const std::vector<std::string>& columns_;  ///< names of the entity that has most
    bool isFirst_, isBegun_ = false;
    std::uint64_t rows_ = 0;
    std::vector<Converted> converted_;
    std::size_t nextConverted_ = 0;
    std::uint64_t unconverted_ = 0;
    std::uint64_t allReplaced_ = 0;        ///< characters that the file's encoding lacks
    std::vector<std::uint64_t> replaced_;  ///< those in values, by column
};

}  // namespace vexlator::exporter
