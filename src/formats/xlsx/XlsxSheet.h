// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScratchFile.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// A sheet of a workbook (ECMA-376, part 1, section 18.3) whose rows below the first are replaced.
class XlsxSheet {
public:
    /// `xml`: the sheet's part; `strings`: the workbook's shared ones. @throws platform::ReadError without a
    /// file name
    XlsxSheet(std::string name, std::string part, const std::string& xml,
              const std::vector<std::string>& strings);

    const std::string& Name() const { return name_; }
    /// The path of its part in the workbook.
    const std::string& PartName() const { return part_; }
    /// Whether it has a first row with names.
    bool HasColumns() const { return !columns_.empty(); }
    /// The column with that name in the first row; -1 without one.
    int ColumnOf(std::string_view name) const;

    /// Rows then go to a scratch file in that folder. @throws platform::WriteError, like the members below
    void BeginRows(const std::string& folder);
    bool HasRows() const { return rows_.has_value(); }
    bool IsFull() const;
    void BeginRow();
    /// Cells of a row may come in any order. Texts are as cells hold them.
    void AddText(int column, std::string_view text);
    void AddNumber(int column, double number);
    /// `formula` without "=".
    void AddFormula(int column, std::string_view formula, std::string_view shown);
    void EndRows();

    /// The text of the part with its new rows, from an offset on: the number of bytes, 0 at the end.
    std::size_t Read(std::uint64_t offset, char* target, std::size_t size);

private:
    class Reader;
    void Cell(int column, std::string_view type, std::string_view inside);

    std::string name_, part_;
    std::string head_, tail_;  ///< of the part: up to the first row's end, from the end of the rows on
    std::map<std::string, int> columns_;  ///< by their names in lower case
    std::map<int, std::string> styles_;   ///< of cells, by column
    std::string rowAttributes_;           ///< of rows
    std::optional<platform::ScratchFile> rows_;
    std::uint32_t row_ = 1;
    bool inRow_ = false;
    std::map<int, std::string> cells_;  ///< of the open row
};

/// The name of a column as in cells' references: A, B ... Z, AA.
std::string XlsxColumnName(int column);

}  // namespace vexlator::formats
