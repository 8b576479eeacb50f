// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/RowReader.h"

#include "formats/SourceText.h"

#include <algorithm>

namespace vexlator::formats {

namespace {

enum class LineEnd { OfRow, InsideQuotes, AfterStrayQuote };

/// Reads the rest of a quoted value with its last quote; false if the line ends first.
bool TakeQuoted(std::string_view& line) {
    for (;;) {
        std::size_t quote = line.find('"');
        if (quote == std::string_view::npos) return false;
        line.remove_prefix(quote + 1);
        if (!line.starts_with('"')) return true;
        line.remove_prefix(1);  // doubled: a quote in the value
    }
}

/// The state at the end of a line that begins a row or, with `quoted`, continues a quoted value. A line that
/// ends inside quotes holds an odd number of quotes in the first case and an even number in the second. So no
/// line is read again for many rows.
LineEnd EndOf(std::string_view line, std::string_view delimiter, bool quoted) {
    for (;;) {
        if (!quoted && line.starts_with('"')) {
            line.remove_prefix(1);
            quoted = true;
        }
        if (quoted && !TakeQuoted(line)) return LineEnd::InsideQuotes;
        std::size_t end = std::min(line.find(delimiter), line.size());
        bool stray = quoted ? end > 0 : line.substr(0, end).find('"') != std::string_view::npos;
        if (stray) return LineEnd::AfterStrayQuote;
        if (end == line.size()) return LineEnd::OfRow;
        line.remove_prefix(end + delimiter.size());
        quoted = false;
    }
}

}  // namespace

std::string_view RowReader::ReadRow() {
    std::string_view row = TakeRow();
    CheckLineLength(row, Line());
    return row;
}

std::string_view RowReader::TakeRow() {
    std::size_t begin = lines_.Position();
    std::string_view row = lines_.ReadTextLine();
    if (row.find('"') == std::string_view::npos || delimiter_ == "\"") return row;
    LineEnd end = EndOf(row, delimiter_, false);
    std::string_view line;
    util::LineReader ahead = lines_;
    while (end == LineEnd::InsideQuotes && !ahead.AtEnd()) {
        line = ahead.ReadTextLine();
        end = EndOf(line, delimiter_, true);
    }
    if (line.data() == nullptr || end != LineEnd::OfRow) return row;
    lines_ = ahead;
    return text_.substr(begin, static_cast<std::size_t>(line.data() + line.size() - text_.data()) - begin);
}

}  // namespace vexlator::formats
