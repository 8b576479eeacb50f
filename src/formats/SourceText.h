// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Helpers for readers of text files.
namespace vexlator::formats {

/// A longer line is not a row of a table or a map. Copying or decoding it would take memory in proportion to
/// the file.
constexpr std::size_t longestLine = std::size_t{64} << 20;
constexpr std::string_view lineTooLong = "a line of more than 64 MB";
/// @throws platform::ReadError, without a file name, for a longer one
void CheckLineLength(std::string_view text, std::uint64_t line);

/// The text after its UTF-8 byte-order mark, if any. A text with a UTF-16 mark is decoded as a whole into
/// `decoded`.
/// @throws platform::ReadError, without a file name, for invalid UTF-16, and for a line of more than
/// longestLine in it
std::string_view TextBehindMark(std::string_view bytes, std::string& decoded);

/// Counts missing values of rows, which the drawing has to hold as empty ones. A few bytes could announce
/// thousands of columns, and millions of rows could lack all of them: that is damage, not data.
class MissingValues {
public:
    /// `sourceBytes` is the size of the file with the rows and of its companion files.
    explicit MissingValues(std::uint64_t sourceBytes) : most_((sourceBytes + 4096) * 64) {}
    /// @throws platform::ReadError, without a file name, if the values are many times larger than the source
    void Count(std::size_t values, std::uint64_t line);

private:
    std::uint64_t count_ = 0;
    std::uint64_t most_;
};

}  // namespace vexlator::formats
