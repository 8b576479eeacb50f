// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"
#include "export/ColumnMatch.h"
#include "export/LayerLoop.h"
#include "formats/xlsx/XlsxRows.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// Writes the rows of one layer: an entity's attributes, then its kind, easting, northing and level.
class SheetRows {
public:
    /// `targetPath` is the folder of the workbook.
    SheetRows(config::Run& run, const ExportLayer& layer, const drawing::Drawing& drawing,
              std::string_view targetPath, formats::XlsxRows& writer);

    void Write(const LayerPart& part);
    /// Returns the number of rows.
    std::uint64_t Finish();

private:
    /// What the template says of an attribute.
    struct Column {
        std::string name;
        bool isNumber = false;
        int width = 0;
    };

    static std::vector<Column> ColumnsOf(config::Run& run, const ExportLayer& layer,
                                         const drawing::Drawing& drawing);
    void AddCell(const Column& column, std::string_view value);
    void AddPlace(drawing::EntityView entity);

    config::Run& run_;
    const ExportLayer& layer_;
    std::string folder_;
    formats::XlsxRows& writer_;
    std::vector<Column> columns_;
    ColumnMatch match_;
    std::size_t table_;
    std::uint64_t rows_ = 0, leftOut_ = 0;
    std::vector<std::uint64_t> notTaken_;  ///< values without a column in the workbook, by column
};

}  // namespace vexlator::exporter
