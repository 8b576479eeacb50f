// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/RowReader.h"
#include "platform/CodePages.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// The delimiter of rows if the .MIF file names none: a tab if the first row with any delimiter has tabs,
/// else ",". Programs that follow the format write tabs, others write commas. If the row has both, the number
/// of columns decides.
std::string UndeclaredDelimiter(std::string_view text, std::size_t columnCount);

/// The rows of attribute values beside a MapInfo interchange file (.MID). The text must outlive the object.
class MidRows {
public:
    /// Rows give their first `columnCount` values. The decoder must outlive the object.
    MidRows(std::string_view text, std::string delimiter, std::size_t columnCount,
            platform::Decoder& decoder);

    /// Whether rows are left. Blank lines at the end do not count.
    bool AtEnd() const;
    /// The next raw row; "" after the last.
    std::string ReadRow();
    /// The values of the next row, valid until the next call. Quotes are removed, a "," that does not
    /// separate becomes "/", another delimiter inside quotes becomes ";".
    std::span<const std::string_view> ReadValues();

    std::size_t Position() const { return rows_.Position(); }
    std::uint64_t Line() const { return rows_.Line(); }

private:
    void Transform(std::string_view row);

    std::string delimiter_;
    std::size_t columnCount_;
    platform::Decoder& decoder_;
    RowReader rows_;
    std::size_t end_;  ///< end of the last row that is not blank
    std::string decoded_, values_;
    std::vector<std::size_t> ends_;  ///< end of each value in values_
    std::vector<std::string_view> views_;
};

}  // namespace vexlator::formats
