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

/// What stands before the objects of a MapInfo interchange file (.MIF).
struct MifHeader {
    std::string charset;    ///< as the file names it; "" when it does not
    std::string delimiter;  ///< of the rows in the .MID file: one character; "" when the file names none
    std::string coordSys;   ///< the whole line; not read
    std::vector<MifColumn> columns;
};

/// Reads up to the last column line. Keywords are found in any letter case. Nothing when there is no
/// "Columns" line: then there are no objects.
/// @throws platform::ReadError for more columns than any table has, and from `lines`
std::optional<MifHeader> ReadMifHeader(MifLines& lines);

/// Whether the header leaves the character set open. Such texts are UTF-8 where they are valid as that.
bool IsNeutralCharset(std::string_view charset);
platform::Decoder MifDecoder(std::string_view charset);

/// Characters that the values of a column take, by its type, such as "Char(30)" or "Decimal(12,3)".
int MifColumnWidth(std::string_view type);

}  // namespace vexlator::formats
