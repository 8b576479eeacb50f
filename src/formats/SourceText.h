// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// What readers of text files share.
namespace vexlator::formats {

/// A line of more bytes is no row of a table or a map: whoever copies or decodes it would take memory by the
/// size of the file.
constexpr std::size_t longestLine = std::size_t{64} << 20;
constexpr std::string_view lineTooLong = "a line of more than 64 MB";
/// @throws platform::ReadError, without a file name, for a longer one
void CheckLineLength(std::string_view text, std::uint64_t line);

/// The text behind its UTF-8 byte-order mark, if it has one; a text whose mark is that of UTF-16 is decoded
/// as a whole into `decoded`.
/// @throws platform::ReadError, without a file name, for bytes that are no UTF-16, and then for a line of
/// more than longestLine
std::string_view TextBehindMark(std::string_view bytes, std::string& decoded);

/// Counts values that rows lack and that the drawing has to hold as empty ones. A few bytes could announce
/// thousands of columns, and millions of rows have none of them: that is damage, not data.
class MissingValues {
public:
    /// `sourceBytes` is the size of the file with the rows and of what belongs to it.
    explicit MissingValues(std::uint64_t sourceBytes) : most_((sourceBytes + 4096) * 64) {}
    /// @throws platform::ReadError, without a file name, when the values outweigh the source many times
    void Count(std::size_t values, std::uint64_t line);

private:
    std::uint64_t count_ = 0;
    std::uint64_t most_;
};

}  // namespace vexlator::formats
