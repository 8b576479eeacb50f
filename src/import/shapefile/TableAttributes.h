// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "formats/dbf/DbfTable.h"
#include "platform/CodePages.h"
#include "platform/Files.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::importer {

/// The attribute table of a shapefile. Its rows become attributes of entities.
class TableAttributes {
public:
    /// Opens the .DBF beside a shapefile, and the .CPG with its encoding.
    /// @throws platform::ReadError with the table's name
    TableAttributes(std::string_view dbfPath, drawing::Drawing& drawing);

    const std::vector<std::string>& FieldNames() const { return names_; }
    std::vector<int> FieldWidths() const;

    /// Gives the last added entity the values of row `number`; empty values if there is no such row. "," in a
    /// value becomes ";;".
    void AddTo(drawing::Drawing& drawing, std::int32_t number);

    /// Messages for the user about the table, one line each; none if there was no fault.
    std::vector<std::string> Remarks() const;
    /// Number of features so far without a row.
    std::uint64_t MissingRows() const { return missingRows_; }

private:
    void AddDecoded(drawing::Drawing& drawing, std::string_view value);

    platform::MappedFile file_;
    formats::DbfTable table_;
    std::string encoding_;
    platform::Decoder decoder_;
    std::vector<std::string> names_;
    drawing::AttributeSet set_ = 0;
    std::uint64_t missingRows_ = 0;
    std::string text_;
};

}  // namespace vexlator::importer
