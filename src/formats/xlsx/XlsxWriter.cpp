// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xlsx/XlsxWriter.h"

#include "formats/xlsx/XlsxCheck.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Text.h"

#include <algorithm>
#include <cstdio>
#include <xlsxwriter.h>

namespace vexlator::formats {

namespace {

constexpr std::size_t longestSheetName = 31;
constexpr int widest = 60;

std::string FolderOfNative(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

lxw_workbook* NewWorkbook(const std::string& path) {
    std::string folder = FolderOfNative(path);
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.use_zip64 = LXW_TRUE;
    options.tmpdir = folder.empty() ? nullptr : folder.data();
    return workbook_new_opt(path.c_str(), &options);
}

}  // namespace

XlsxWriter::XlsxWriter(platform::OutputFile& file)
    : file_(file), workbook_(NewWorkbook(file.TemporaryName())) {
    if (!workbook_) throw platform::WriteError(file_.Name(), "the workbook cannot be begun");
    // A fixed date: the same drawing gives the same bytes on every day.
    lxw_doc_properties properties{};
    properties.created = 939686400;
    workbook_set_properties(workbook_, &properties);
    header_ = workbook_add_format(workbook_);
    format_set_bold(header_);
    format_set_bottom(header_, LXW_BORDER_THIN);
    link_ = workbook_get_default_url_format(workbook_);
}

XlsxWriter::~XlsxWriter() {
    if (!workbook_) return;
    for (const Table& table : tables_)
        if (table.sheet && table.sheet->optimize_tmpfile) std::fclose(table.sheet->optimize_tmpfile);
    lxw_workbook_free(workbook_);
}

void XlsxWriter::Fail(int error) const {
    throw platform::WriteError(file_.Name(), lxw_strerror(static_cast<lxw_error>(error)));
}

std::size_t XlsxWriter::AddTable(std::string_view name, const std::vector<XlsxColumn>& columns) {
    tables_.push_back({std::string(name), columns});
    if (tables_.back().columns.size() > mostColumns) tables_.back().columns.resize(mostColumns);
    AddSheet(tables_.back());
    return tables_.size() - 1;
}

std::string XlsxWriter::SheetName(std::string_view name) {
    constexpr std::string_view forbidden = "[]:*?/\\'";
    std::string plain = platform::AsUtf8(name);
    std::ranges::replace_if(
        plain,
        [&](char c) {
            return static_cast<unsigned char>(c) < ' ' || forbidden.find(c) != std::string_view::npos;
        },
        '_');
    if (util::Trim(plain).empty() || platform::SameNoCase(plain, "History")) plain += '_';
    std::string candidate(FirstUtf16Units(plain, longestSheetName));
    for (int n = 2; !names_.insert(platform::LowerAscii(candidate)).second; ++n) {
        std::string number = " (" + std::to_string(n) + ")";
        candidate = std::string(FirstUtf16Units(plain, longestSheetName - number.size())) + number;
    }
    return candidate;
}

void XlsxWriter::AddSheet(Table& table) {
    table.sheet = workbook_add_worksheet(workbook_, SheetName(table.name).c_str());
    if (!table.sheet) throw platform::WriteError(file_.Name(), "there is no room for a sheet's rows");
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        auto column = static_cast<lxw_col_t>(i);
        constexpr int margin = 3, narrowest = 8;
        auto letters = static_cast<int>(platform::CountCharacters(platform::AsUtf8(table.columns[i].name)));
        int width = std::clamp(std::max(table.columns[i].width, letters + margin), narrowest, widest);
        worksheet_set_column(table.sheet, column, column, width, nullptr);
        worksheet_write_string(table.sheet, 0, column, CellText(table.columns[i].name).c_str(), header_);
    }
    worksheet_freeze_panes(table.sheet, 1, 0);
    table.rows = 1;
}

void XlsxWriter::EndSheet(const Table& table) {
    sheetRows_.push_back(table.columns.empty() && table.rows == 1 ? 0 : table.rows);
    if (table.columns.empty() || table.rows < 2) return;
    auto last = static_cast<lxw_col_t>(table.columns.size() - 1);
    worksheet_autofilter(table.sheet, 0, 0, table.rows - 1, last);
    std::string range(LXW_MAX_CELL_RANGE_LENGTH, '\0');
    lxw_rowcol_to_range(range.data(), 1, 0, table.rows - 1, last);
    worksheet_ignore_errors(table.sheet, LXW_IGNORE_NUMBER_STORED_AS_TEXT, range.c_str());
}

void XlsxWriter::BeginRow(std::size_t table) {
    current_ = &tables_[table];
    if (current_->rows == mostRows) {
        EndSheet(*current_);
        AddSheet(*current_);
    }
    ++current_->rows;
    column_ = 0;
}

void XlsxWriter::AddText(std::string_view text) {
    lxw_col_t column = column_++;
    if (text.empty() || column >= current_->columns.size()) return;
    lxw_error error =
        worksheet_write_string(current_->sheet, current_->rows - 1, column, CellText(text).c_str(), nullptr);
    if (error != LXW_NO_ERROR) Fail(error);
}

void XlsxWriter::AddNumber(double number) {
    lxw_col_t column = column_++;
    if (column >= current_->columns.size()) return;
    lxw_error error = worksheet_write_number(current_->sheet, current_->rows - 1, column, number, nullptr);
    if (error != LXW_NO_ERROR) Fail(error);
}

void XlsxWriter::AddLink(std::string_view path, std::string_view text) {
    std::string address = "external:" + util::PercentEncoded(path, "-._~/");
    lxw_error error = LXW_ERROR_WORKSHEET_MAX_NUMBER_URLS_EXCEEDED;
    if (column_ < current_->columns.size())
        error = worksheet_write_url_opt(current_->sheet, current_->rows - 1, column_, address.c_str(), link_,
                                        CellText(text).c_str(), nullptr);
    if (error != LXW_NO_ERROR) {
        ++plainLinks_;
        return AddText(text);
    }
    ++column_;
}

void XlsxWriter::Finish() {
    if (tables_.empty()) AddTable("Sheet1", {});
    for (const Table& table : tables_) {
        EndSheet(table);
        // The library does not look whether its rows have arrived.
        std::FILE* rows = table.sheet->optimize_tmpfile;
        if (rows && (std::fflush(rows) != 0 || std::ferror(rows) != 0))
            throw platform::WriteError(file_.Name(), "there is no room for a sheet's rows");
    }
    lxw_error error = workbook_close(workbook_);
    workbook_ = nullptr;
    if (error != LXW_NO_ERROR) Fail(error);
    Verify();
}

void XlsxWriter::Verify() const {
    std::uint64_t rows = 0;
    for (std::uint32_t sheet : sheetRows_) rows += sheet;
    if (XlsxRowCount(file_.TemporaryName()) != rows)
        throw platform::WriteError(file_.Name(), "some of its rows are missing; is the disk full?");
}

}  // namespace vexlator::formats
