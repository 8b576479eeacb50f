// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// dBASE III tables (.DBF), read from bytes. Layout facts: the published dBASE III file format.
namespace vexlator::formats {

struct DbfField {
    std::string_view name;  ///< at most 10 bytes, blanks removed from its ends; in the table's encoding
    std::size_t offset;     ///< of its first byte in a record; byte 0 is the deletion flag
    std::size_t width;      ///< bytes
    char type = 'C';        ///< C text, N and F number, D date, L logical, M memo
};

/// A table in memory that the bytes outlive. Records are numbered from 1; deleted ones count like others.
class DbfTable {
public:
    /// @throws platform::ReadError without a file name: byte and reason
    explicit DbfTable(std::span<const std::byte> bytes);

    const std::vector<DbfField>& Fields() const { return fields_; }
    std::size_t RecordLength() const { return recordLength_; }
    /// Records that the file has room for, whatever its header says.
    std::uint64_t RecordCount() const { return recordCount_; }
    /// The code of the table's encoding; 0 when it names none.
    std::uint8_t LanguageByte() const { return language_; }

    /// The bytes of a record, its deletion flag first; as many as the file holds of a record that is cut off,
    /// none of one that lies outside the table.
    std::string_view Record(std::int64_t number) const;
    /// The part of a record that holds a field, surrounding blanks and NULs removed.
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

/// The name of a table's encoding, for platform::Decoder: what the .CPG file says, else what the language
/// byte says, else Windows-1252. Codes of the language byte: the published list of dBASE language drivers.
std::string DbfEncoding(std::string_view cpgText, std::uint8_t languageByte);

}  // namespace vexlator::formats
