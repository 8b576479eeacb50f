// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Reads dBASE III tables (.DBF) from bytes. Source: the dBASE III database file structure, version 1.00:
/// file header, field descriptors, data records.
namespace vexlator::formats {

struct DbfField {
    std::string_view name;  ///< at most 10 bytes, blanks removed from its ends; in the table's encoding
    std::size_t offset;     ///< offset of its first byte in a record; byte 0 is the deletion flag
    std::size_t width;      ///< bytes
    char type = 'C';        ///< C text, N and F number, D date, L logical, M memo
};

/// A table in memory. The bytes must outlive it. Records are numbered from 1, including deleted ones.
class DbfTable {
public:
    /// @throws platform::ReadError without a file name: byte and reason
    explicit DbfTable(std::span<const std::byte> bytes);

    const std::vector<DbfField>& Fields() const { return fields_; }
    std::size_t RecordLength() const { return recordLength_; }
    /// Number of records that fit in the file, whatever its header says.
    std::uint64_t RecordCount() const { return recordCount_; }
    /// The code of the table's encoding; 0 if it names none.
    std::uint8_t LanguageByte() const { return language_; }

    /// The bytes of a record, starting with its deletion flag. A truncated record has the bytes in the file.
    /// A record outside the table has none.
    std::string_view Record(std::int64_t number) const;
    /// The part of a record with a field, without surrounding blanks and NULs.
    static std::string_view Value(std::string_view record, const DbfField& field);

private:
    void ReadFields(std::size_t headerLength);

    std::span<const std::byte> bytes_;
    std::size_t headerLength_ = 0;
    std::size_t recordLength_ = 0;
    std::uint64_t recordCount_ = 0;
    std::uint8_t language_ = 0;
    std::vector<DbfField> fields_;
};

/// The name of a table's encoding, for platform::Decoder: from the .CPG file, else from the language byte,
/// else Windows-1252. Source of the codes: the language driver ID, byte 29 of the file header since dBASE IV
/// 2.0.
std::string DbfEncoding(std::string_view cpgText, std::uint8_t languageByte);

}  // namespace vexlator::formats
