// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/RowReader.h"
#include "formats/csv/CsvColumns.h"
#include "platform/CodePages.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// The line without its pairs of double quotes. Between the quotes of a pair every "," becomes ";", and a tab
/// that would separate becomes a blank. A single quote stays.
std::string UnquoteCsvLine(std::string_view line, char delimiter);

/// One point of a table.
struct CsvRecord {
    /// Whether both coordinates are numbers. A field that only starts with a number gives this number; any
    /// other field gives 0.
    enum class Located { No, Doubtful, Yes };

    double east, north;
    Located located;
    /// The key, then the values of the record's attribute columns. Valid until the next read.
    std::span<const std::string_view> values;
};

/// Reads the records of a table of points, without blank lines. Text is UTF-8 if it is valid UTF-8, else
/// Windows-1252. The text must outlive the object.
class CsvRecords {
public:
    CsvRecords(std::string_view text, char delimiter) : delimiter_(delimiter), rows_(text, {&delimiter, 1}) {}

    /// The next row, decoded, with any contents; valid until the next call.
    std::string_view ReadRow();
    /// False at the end of the text. A record without a key gets the key "gvw" and its number, from 1.
    bool Next(const CsvColumns& columns, CsvRecord& record);

    std::uint64_t Count() const { return count_; }
    std::size_t Position() const { return rows_.Position(); }
    std::uint64_t Line() const { return rows_.Line(); }

private:
    void ParseCsvRecord(std::string_view line, const CsvColumns& columns, CsvRecord& record);
    std::string_view Field(int column) const;

    char delimiter_;
    RowReader rows_;
    platform::Decoder decoder_{"UTF-8"};
    std::string decoded_, unquoted_, madeKey_;
    std::vector<std::string_view> fields_, values_;
    std::uint64_t count_ = 0;
};

}  // namespace vexlator::formats
