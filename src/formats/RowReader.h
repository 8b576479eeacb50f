// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Files.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::formats {

/// The rows of delimited text, as they stand. A row is a line, unless the line ends inside a value that is
/// quoted as RFC 4180 has it: then it goes on to the line in which the last such value ends. Where quotes do
/// not stand around whole values, they are text, and the row is its line. The text outlives the object.
class RowReader {
public:
    RowReader(std::string_view text, std::string_view delimiter)
        : text_(text), delimiter_(delimiter), lines_(text) {}

    bool AtEnd() const { return lines_.AtEnd(); }
    /// The next row without its line end; "" behind the last. @throws platform::ReadError, without a file
    /// name, when it is longer than longestLine
    std::string_view ReadRow();
    /// Where the next row begins.
    std::size_t Position() const { return lines_.Position(); }
    /// Number of the line read last, from 1.
    std::uint64_t Line() const { return lines_.Line(); }

private:
    std::string_view TakeRow();

    std::string_view text_;
    std::string delimiter_;
    util::LineReader lines_;
};

}  // namespace vexlator::formats
