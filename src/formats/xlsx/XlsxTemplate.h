// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/xlsx/XlsxRows.h"
#include "formats/xlsx/XlsxSheet.h"
#include "platform/Files.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

struct zip;
struct zip_source;

namespace vexlator::formats {

/// Fills a copy of a workbook. A table goes to the sheet with its name, below the first row, whose cells name
/// its columns; letter case does not count. Its rows replace the ones that were there and look like the
/// second one, cell by cell. Everything else stays as it is. Tables and columns that the workbook lacks are
/// not taken.
///
/// Parts of the workbook of more than 64 MB are refused.
class XlsxTemplate : public XlsxRows {
public:
    /// `file`: the copy, which the caller commits. @throws platform::ReadError: the workbook's path and the
    /// reason
    XlsxTemplate(std::string_view path, platform::OutputFile& file);
    ~XlsxTemplate() override;

    std::size_t AddTable(std::string_view name, const std::vector<XlsxColumn>& columns) override;
    void BeginRow(std::size_t table) override;
    void AddText(std::string_view text) override;
    void AddNumber(double number) override;
    /// As a formula, which spreadsheets show as a link.
    void AddLink(std::string_view path, std::string_view text) override;
    void Finish() override;
    bool Takes(std::size_t table) const override { return tables_[table].sheet != nullptr; }
    bool Takes(std::size_t table, std::size_t column) const override;

private:
    struct Table {
        XlsxSheet* sheet = nullptr;
        std::vector<int> places;  ///< the sheet's column of each of the table's; -1: none
    };

    class NewArchive;

    void ReadSheets();
    zip_source* SourceOf(NewArchive& target, const std::string& name, std::uint64_t index);
    std::string Part(const std::string& name) const;
    std::vector<std::string> SharedStrings() const;
    [[noreturn]] void Refuse(const std::string& reason) const;
    [[noreturn]] void Fail(const std::string& reason) const;
    /// Where the next cell goes; -1: nowhere.
    int NextPlace();

    platform::OutputFile& file_;
    std::string name_;
    zip* source_ = nullptr;
    std::deque<XlsxSheet> sheets_;
    std::deque<Table> tables_;
    Table* current_ = nullptr;
    std::size_t column_ = 0;
};

}  // namespace vexlator::formats
