// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/mif/MifLines.h"
#include "platform/CodePages.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

struct MifColumn {
    std::string name;
    std::string type;  ///< as in "Char(32)"
};

/// The header of a MapInfo interchange file (.MIF).
struct MifHeader {
    std::string charset;  ///< as in the file; "" if it names none
    std::string
        delimiter;  ///< delimiter of the rows in the .MID file: one character; "" if the file names none
    std::string coordSys;  ///< the whole line, not interpreted
    std::vector<MifColumn> columns;
};

/// Reads up to the last column line. Keywords are found in any letter case. Nothing without a "Columns" line,
/// because then there are no objects.
/// @throws platform::ReadError for more columns than any table has, and from `lines`
std::optional<MifHeader> ReadMifHeader(MifLines& lines);

/// Whether the header omits the character set. Such texts are UTF-8 if they are valid UTF-8.
bool IsNeutralCharset(std::string_view charset);
platform::Decoder MifDecoder(std::string_view charset);

/// The width of a column's values in characters, from its type, such as "Char(30)" or "Decimal(12,3)".
int MifColumnWidth(std::string_view type);

}  // namespace vexlator::formats
