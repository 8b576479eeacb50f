// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/csv/CsvRecords.h"

#include "util/Numbers.h"
#include "util/Text.h"
#include "util/WholeNumber.h"

#include <algorithm>

namespace vexlator::formats {

namespace {

using Located = CsvRecord::Located;

/// 0 is a number only if the text has a digit.
bool BeginsWithNumber(double value, std::string_view field) {
    if (value != 0) return true;
    std::size_t digit = field.find_first_not_of(" \t\r\n+-.");
    return digit != std::string_view::npos && field[digit] >= '0' && field[digit] <= '9';
}

Located ReadCoordinate(std::string_view field, double& value) {
    std::string_view text = util::Trim(field);
    if (text.starts_with('+')) text.remove_prefix(1);
    if (std::optional<double> number = util::WholeNumberOf(text)) {
        value = *number;
        return Located::Yes;
    }
    value = util::NumberOf(field);
    return BeginsWithNumber(value, field) ? Located::Doubtful : Located::No;
}

}  // namespace

std::string UnquoteCsvLine(std::string_view line, char delimiter) {
    std::string unquoted;
    unquoted.reserve(line.size());
    for (;;) {
        std::size_t open = line.find('"');
        std::size_t close = open == std::string_view::npos ? open : line.find('"', open + 1);
        if (close == std::string_view::npos) return unquoted.append(line);
        unquoted.append(line.substr(0, open));
        for (char c : line.substr(open + 1, close - open - 1))
            unquoted += c == ',' ? ';' : c == delimiter ? ' ' : c;
        line.remove_prefix(close + 1);
    }
}

std::string_view CsvRecords::ReadRow() {
    std::string_view row = rows_.ReadRow();
    if (platform::IsAscii(row)) return row;
    decoded_.clear();
    decoder_.Append(decoded_, row);
    return decoded_;
}

bool CsvRecords::Next(const CsvColumns& columns, CsvRecord& record) {
    while (!rows_.AtEnd()) {
        std::string_view line = ReadRow();
        if (util::Trim(line).empty()) continue;
        ++count_;
        if (line.find('"') != std::string_view::npos) line = unquoted_ = UnquoteCsvLine(line, delimiter_);
        ParseCsvRecord(line, columns, record);
        return true;
    }
    return false;
}

void CsvRecords::ParseCsvRecord(std::string_view line, const CsvColumns& columns, CsvRecord& record) {
    SplitCsvLine(line, delimiter_, columns.Count(), fields_);
    record.located = std::min(ReadCoordinate(Field(columns.East()), record.east),
                              ReadCoordinate(Field(columns.North()), record.north));
    std::string_view key = Field(columns.Key());
    if (util::Trim(key).empty()) key = madeKey_ = "gvw" + std::to_string(count_);
    values_.clear();
    values_.push_back(key);
    for (std::size_t i = 0; i < fields_.size(); ++i)
        if (columns.IsAttribute(i)) values_.push_back(fields_[i]);
    record.values = values_;
}

std::string_view CsvRecords::Field(int column) const {
    auto index = static_cast<std::size_t>(column);
    return column < 0 || index >= fields_.size() ? std::string_view() : fields_[index];
}

}  // namespace vexlator::formats
