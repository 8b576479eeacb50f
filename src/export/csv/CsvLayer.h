// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "coords/frmLatLng.h"
#include "drawing/Drawing.h"
#include "export/ColumnMatch.h"
#include "export/LayerLoop.h"
#include "export/LeftOutEntities.h"
#include "export/csv/CsvSettings.h"
#include "formats/csv/CsvWriter.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// Writes the rows of one layer.
class CsvLayer {
public:
    /// `columns` are HeaderNames(). `converter` converts points to latitude and longitude, or is null.
    /// `isFirst`: no other layer precedes this one in the file.
    CsvLayer(config::Run& run, const CsvSettings& settings, coords::frmLatLng* converter,
             const ExportLayer& layer, std::vector<std::string> columns, formats::CsvWriter& writer,
             bool isFirst);

    /// Writes a row for each point, symbol and polyline, and the header before the first part.
    void Write(const LayerPart& part);
    /// Returns the number of rows.
    std::uint64_t Finish();

private:
    /// A point in its form for writing.
    struct Converted {
        util::PlanePoint point;
        double height;
        bool inDegrees;
    };

    void AddHeader();
    void AddRows(const LayerPart& part);
    /// Fills `converted_` with the points of the entities.
    void Convert(const LayerPart& part);
    void AddPoint(drawing::EntityView entity);
    void AddPolyline(drawing::EntityView entity);
    void AddRow(std::string_view geometry, const formats::CsvCoordinates& coordinates,
                drawing::EntityView entity);
    void AddValues(drawing::EntityView entity);
    void AddValue(std::string_view value);
    void CountLosses(std::string_view column, const formats::CsvLosses& losses);
    void Report();

    config::Run& run_;
    const CsvSettings& settings_;
    coords::frmLatLng* converter_;
    const ExportLayer& layer_;
    formats::CsvWriter& writer_;
    std::vector<std::string> columns_;  ///< names of attributes
    ColumnMatch match_;
    bool isFirst_, isBegun_ = false;
    std::uint64_t rows_ = 0;
    std::vector<Converted> converted_;
    std::size_t nextConverted_ = 0;
    LeftOutEntities leftOut_;
    std::uint64_t unconverted_ = 0;
    formats::CsvLosses allLosses_;            ///< losses of this layer
    std::vector<formats::CsvLosses> losses_;  ///< losses in values, by column
};

}  // namespace vexlator::exporter
