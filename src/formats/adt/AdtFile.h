// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/RowReader.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Reads files of feature records: one point a row, its fields separated by commas and quoted as in RFC 4180,
/// without a header. Rows that begin with ' are comments. Text is UTF-8 if a row is valid UTF-8, else
/// Windows-1252.
///     TREE,412345.120,287654.300,96.2,OAK,12.5
namespace vexlator::formats {

/// One feature. Valid until the next read.
struct AdtRecord {
    std::string_view code;  ///< trimmed, not empty
    double east = 0, north = 0, height = 0;
    bool isLocated = false;  ///< east and north are numbers, and the height is one or missing
    std::span<const std::string_view> values;  ///< in the order of the code's template
};

/// The text must outlive the object.
class AdtFile {
public:
    explicit AdtFile(std::string_view text) : rows_(text, ",") {}

    /// False at the end. Rows without a code are counted and skipped.
    /// @throws platform::ReadError, without a file name, for a row longer than longestLine or of more than
    /// 1,000 fields
    bool Next(AdtRecord& record);

    std::uint64_t Line() const { return rows_.Line(); }
    std::size_t Position() const { return rows_.Position(); }
    std::uint64_t WithoutCode() const { return withoutCode_; }
    std::uint64_t FirstWithoutCode() const { return firstWithoutCode_; }

private:
    void Split(std::string_view row);

    RowReader rows_;
    std::string row_;                    ///< decoded
    std::vector<std::string> unquoted_;  ///< fields whose quotes had to go
    std::vector<std::string_view> fields_;
    std::uint64_t withoutCode_ = 0, firstWithoutCode_ = 0;
};

}  // namespace vexlator::formats
