// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/TextEncoding.h"
#include "platform/Files.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Writes dBASE III tables (.DBF). Source: the dBASE III database file structure, version 1.00: file header,
/// field descriptors, data records.
namespace vexlator::formats {

/// File sizes in these formats are signed 32-bit numbers.
constexpr std::uint64_t largestTableFile = 0x7FFFFFFF;

struct DbfColumn {
    std::string name;  ///< of any length
    char type = 'C';   ///< C or N
    int width = 0;     ///< bytes, 0 to 255
    int decimals = 0;
};

/// Writes one table into a file that the caller commits: columns first, then record after record. Names of
/// columns are cut to 10 bytes of the table's encoding, and blanks become "_". Names that are equal then,
/// without regard to letter case, get numbers: INSPECTIO1.
/// @throws platform::WriteError, also for a table above 2 GB
class DbfWriter {
public:
    using Encoding = TextEncoding;
    static constexpr std::size_t mostColumns = 256;  ///< the writer ignores further ones

    /// `records` is the number of records to follow. A table that would be too large is refused before it is
    /// written.
    DbfWriter(platform::OutputFile& file, std::vector<DbfColumn> columns, Encoding encoding,
              std::uint64_t records = 0);

    /// Starts a record whose fields are all blank.
    void BeginRecord();
    /// Sets field `column`. Surrounding blanks are dropped. A value enclosed in ' loses both. A value longer
    /// than the column is cut at a whole character. A column that does not exist is ignored.
    void SetField(std::size_t column, std::string_view value);
    void EndRecord();
    /// Writes the end mark and the header.
    void Finish();

    std::uint32_t RecordCount() const { return records_; }
    /// With their names in the table.
    const std::vector<DbfColumn>& Columns() const { return columns_; }
    /// Number of values cut so far, by column.
    const std::vector<std::uint64_t>& ValuesCut() const { return cut_; }
    /// Number of characters replaced so far, by column. NUL is replaced because it would end the value for
    /// readers.
    const std::vector<std::uint64_t>& Replaced() const { return replaced_; }

    /// Values so far, by column, of columns of numbers that are none: readers take them for empty or for 0.
    const std::vector<std::uint64_t>& NotNumbers() const { return notNumbers_; }

private:
    std::string Header() const;
    void NameColumns();
    std::string FreeName(std::set<std::string>& taken, std::string_view name) const;
    std::string_view Cut(std::string_view text, std::size_t width) const;
    void WriteDescriptors();
    void CheckRoomFor(std::uint64_t records) const;

    platform::OutputFile& file_;
    std::vector<DbfColumn> columns_;
    TextEncoder encoder_;
    std::vector<std::size_t> offsets_;
    std::vector<std::uint64_t> cut_, replaced_, notNumbers_;
    std::size_t recordLength_ = 1;
    std::uint32_t records_ = 0;
    char* record_ = nullptr;  ///< in the file's buffer, while a record is open
};

}  // namespace vexlator::formats
