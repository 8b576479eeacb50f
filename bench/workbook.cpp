// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// bench_workbook TABLE.csv TARGET.xlsx: writes a table of points with the workbook library alone, as a
// measure of the export. The table's first two columns, x and y, become numbers in the last columns, the
// others texts.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>
#include <xlsxwriter.h>

namespace {

std::vector<std::string> FieldsOf(const std::string& line) {
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (char c : line) {
        if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            fields.emplace_back();
        else
            fields.back() += c;
    }
    return fields;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return EXIT_FAILURE;
    std::ifstream table(arguments[1]);
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.use_zip64 = LXW_TRUE;
    lxw_workbook* workbook = workbook_new_opt(arguments[2], &options);
    lxw_worksheet* sheet = workbook_add_worksheet(workbook, nullptr);
    std::string line;
    for (lxw_row_t row = 0; std::getline(table, line); ++row) {
        std::vector<std::string> fields = FieldsOf(line);
        lxw_col_t column = 0;
        for (std::size_t i = 2; i < fields.size(); ++i, ++column)
            if (!fields[i].empty()) worksheet_write_string(sheet, row, column, fields[i].c_str(), nullptr);
        worksheet_write_string(sheet, row, column++, "VDPOINT", nullptr);
        for (std::size_t i = 0; i < 2; ++i)
            worksheet_write_number(sheet, row, column++, std::strtod(fields[i].c_str(), nullptr), nullptr);
        worksheet_write_number(sheet, row, column, 0, nullptr);
    }
    return workbook_close(workbook) == LXW_NO_ERROR ? EXIT_SUCCESS : EXIT_FAILURE;
}
