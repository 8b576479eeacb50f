// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/TextEncoding.h"
#include "platform/Files.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// dBASE III tables (.DBF), written. Layout facts: the published dBASE III file format.
namespace vexlator::formats {

/// Files of these formats hold their sizes in signed 32-bit numbers.
constexpr std::uint64_t largestTableFile = 0x7FFFFFFF;

struct DbfColumn {
    std::string name;  ///< at most 10 bytes are written, in the table's encoding
    char type = 'C';   ///< C or N
    int width = 0;     ///< bytes, 0 to 255
    int decimals = 0;
};

/// Writes one table into a file that the caller commits: columns first, then record after record.
/// @throws platform::WriteError, also for a table that would pass 2 GB
class DbfWriter {
public:
    using Encoding = TextEncoding;
    static constexpr std::size_t mostColumns = 256;  ///< further ones are left out

    /// `records` is how many will follow: a table that would be too large is refused before it is written.
    DbfWriter(platform::OutputFile& file, std::vector<DbfColumn> columns, Encoding encoding,
              std::uint64_t records = 0);

    /// Starts a record whose fields are all blank.
    void BeginRecord();
    /// Sets field `column`: surrounding blanks do not count, a value enclosed in ' loses both, one that is
    /// longer than the column is cut at a whole character. A column that does not exist takes nothing.
    void SetField(std::size_t column, std::string_view value);
    void EndRecord();
    /// Writes the end mark and the header.
    void Finish();

    std::uint32_t RecordCount() const { return records_; }
    const std::vector<DbfColumn>& Columns() const { return columns_; }
    /// Values cut so far, by column.
    const std::vector<std::uint64_t>& ValuesCut() const { return cut_; }

private:
    std::string Header() const;
    void WriteDescriptors();
    void CheckRoomFor(std::uint64_t records) const;

    platform::OutputFile& file_;
    std::vector<DbfColumn> columns_;
    Encoding encoding_;
    std::vector<std::size_t> offsets_;
    std::vector<std::uint64_t> cut_;
    std::size_t recordLength_ = 1;
    std::uint32_t records_ = 0;
    char* record_ = nullptr;  ///< in the file's buffer, while a record is being set
};

}  // namespace vexlator::formats
