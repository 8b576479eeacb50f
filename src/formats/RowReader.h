// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Files.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::formats {

/// The raw rows of delimited text. A row is a line, unless the line ends inside a value quoted by RFC 4180.
/// Then the row continues to the line in which its last quoted value ends. Quotes that do not enclose a whole
/// value are text, and the row is its line. The text must outlive the object.
class RowReader {
public:
    RowReader(std::string_view text, std::string_view delimiter)
        : text_(text), delimiter_(delimiter), lines_(text) {}

    bool AtEnd() const { return lines_.AtEnd(); }
    /// The next row without its line end; "" after the last.
    /// @throws platform::ReadError, without a file name, if it is longer than longestLine
    std::string_view ReadRow();
    /// Position of the next row.
    std::size_t Position() const { return lines_.Position(); }
    /// Number of the last line read, from 1.
    std::uint64_t Line() const { return lines_.Line(); }

private:
    std::string_view TakeRow();

    std::string_view text_;
    std::string delimiter_;
    util::LineReader lines_;
};

}  // namespace vexlator::formats
