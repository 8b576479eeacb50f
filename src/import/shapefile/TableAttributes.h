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

/// The attribute table of a shapefile, whose rows become attributes of entities.
class TableAttributes {
public:
    /// Opens the .DBF beside a shapefile, and the .CPG that names its encoding.
    /// @throws platform::ReadError with the table's name
    TableAttributes(std::string_view dbfPath, drawing::Drawing& drawing);

    const std::vector<std::string>& FieldNames() const { return names_; }
    std::vector<int> FieldWidths() const;

    /// Gives the entity added last the values of row `number`; empty ones when there is no such row.
    /// "," becomes ";;" in them.
    void AddTo(drawing::Drawing& drawing, std::int32_t number);

    /// What the person should know about the table, a line each; none when all went well.
    std::vector<std::string> Remarks() const;

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
