// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/xlsx/XlsxRows.h"
#include "platform/Files.h"

#include <cstdint>
#include <deque>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// NOLINTBEGIN(readability-identifier-naming): the library's names
struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;
// NOLINTEND(readability-identifier-naming)

/// Writes workbooks (.xlsx) of tables.
namespace vexlator::formats {

/// Writes one workbook into a file that the caller commits. A sheet has a header that stays in view and
/// filters its rows. Its cells come row by row: BeginRow(), a cell for each column, in order. The rows of
/// sheets can mix. A table of more rows than a sheet holds continues in another sheet.
///
/// A workbook without sheets gets an empty one.
/// @throws platform::WriteError, from every member but the counters
class XlsxWriter : public XlsxRows {
public:
    explicit XlsxWriter(platform::OutputFile& file);
    ~XlsxWriter() override;

    /// The table's sheet gets a name made of `name`: shorter, unique, without the characters that sheets'
    /// names cannot have.
    std::size_t AddTable(std::string_view name, const std::vector<XlsxColumn>& columns) override;
    void BeginRow(std::size_t table) override;
    void AddText(std::string_view text) override;
    void AddNumber(double number) override;
    void AddLink(std::string_view path, std::string_view text) override;
    void Finish() override;
    bool Takes(std::size_t) const override { return true; }
    bool Takes(std::size_t table, std::size_t column) const override {
        return column < tables_[table].columns.size();
    }

private:
    struct Table {
        std::string name;
        std::vector<XlsxColumn> columns;
        lxw_worksheet* sheet = nullptr;
        std::uint32_t rows = 0;  ///< of the sheet, with its header
    };

    void AddSheet(Table& table);
    void EndSheet(const Table& table);
    std::string SheetName(std::string_view name);
    void Verify() const;
    [[noreturn]] void Fail(int error) const;

    platform::OutputFile& file_;
    lxw_workbook* workbook_ = nullptr;
    lxw_format* header_ = nullptr;
    lxw_format* link_ = nullptr;
    std::deque<Table> tables_;
    std::vector<std::uint32_t> sheetRows_;  ///< of the sheets so far, those of open ones later
    std::set<std::string> names_;           ///< of sheets, in lower case
    Table* current_ = nullptr;
    std::uint16_t column_ = 0;
};

}  // namespace vexlator::formats
