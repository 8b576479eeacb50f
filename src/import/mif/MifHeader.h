// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "import/mif/MifLines.h"
#include "platform/CodePages.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::importer {

struct MifColumn {
    std::string name;
    int width;  ///< characters that its values take
};

/// What stands before the objects of a MapInfo interchange file (.MIF).
struct MifHeader {
    std::string charset;    ///< as the file names it; "" when it does not
    std::string delimiter;  ///< of the rows in the .MID file: one character; "" when the file names none
    std::vector<MifColumn> columns;
    bool complete = false;  ///< the "Columns" line was found: without it there are no objects
};

/// Reads up to the last column line, or to the end of the file. Keywords are found in any letter case.
/// @throws platform::ReadError for more columns than any table has, and from `lines`
MifHeader ReadMifHeader(MifLines& lines);

/// Whether the header leaves the character set open. Such texts are UTF-8 where they are valid as that.
bool IsNeutralCharset(std::string_view charset);
platform::Decoder MifDecoder(std::string_view charset);

/// The width of a column of a type such as "Char(30)" or "Decimal(12,3)".
int MifColumnWidth(std::string_view type);

}  // namespace vexlator::importer
