// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// The layout of a table of points.
struct CsvTable {
    bool header = true;            ///< the first line names the columns
    char delimiter = ',';          ///< or a tab
    std::string east, north, key;  ///< names of columns; without a header: their positions, from 0
};

/// Splits a line at every delimiter into at most `most` fields.
void SplitCsvLine(std::string_view line, char delimiter, std::size_t most,
                  std::vector<std::string_view>& fields);

/// The meaning of the columns of a table of points. Values of one header also apply to the next file, unless
/// its header replaces them.
class CsvColumns {
public:
    explicit CsvColumns(CsvTable table);

    /// Reads the columns from a header line. Names are case-sensitive. The later of two equal names counts. A
    /// header with fields in double quotes is read like records.
    /// @throws platform::ReadError, without a file name, for more columns than positions can express
    void ReadCsvHeader(std::string_view line);

    /// -1: no such column.
    int East() const { return east_; }
    int North() const { return north_; }
    int Key() const { return key_; }
    /// The number of fields that can matter in a record.
    std::size_t Count() const { return count_; }
    /// Whether the column holds an attribute, not key or coordinate.
    bool IsAttribute(std::size_t column) const {
        return column < attributeColumns_.size() && attributeColumns_[column];
    }
    /// Names of the attributes, the key's name first; none without a header.
    const std::vector<std::string>& AttributeNames() const { return names_; }
    const std::vector<int>& AttributeWidths() const { return widths_; }
    /// The names in the header, for the user. A long list is shortened.
    const std::string& Header() const { return header_; }

private:
    void CountFields(std::size_t ofHeader);
    void FindPositions(std::span<const std::string_view> fields);
    bool IsKeyOrCoordinate(int column) const { return column == key_ || column == east_ || column == north_; }

    CsvTable table_;
    int east_ = -1, north_ = -1, key_ = -1;
    std::vector<std::string> names_;
    std::vector<int> widths_;
    std::vector<bool> attributeColumns_;
    std::size_t count_ = 0;
    std::string header_;
};

}  // namespace vexlator::formats
