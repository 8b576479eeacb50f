// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/RowReader.h"

namespace vexlator::importer {

namespace {

enum class LineEnd { OfRow, InsideQuotes, AfterStrayQuote };

/// How a line ends that begins a row or, with `quoted`, goes on with a quoted value.
LineEnd EndOf(std::string_view line, std::string_view delimiter, bool quoted) {
    for (;;) {
        if (!quoted && line.starts_with('"')) {
            line.remove_prefix(1);
            quoted = true;
        }
        std::size_t end = quoted ? line.find('"') : line.find(delimiter);
        if (end == std::string_view::npos) return quoted ? LineEnd::InsideQuotes : LineEnd::OfRow;
        line.remove_prefix(end + (quoted ? 1 : delimiter.size()));
        if (!quoted) continue;
        if (line.starts_with('"')) {  // doubled: a quote of the value
            line.remove_prefix(1);
            continue;
        }
        if (line.empty()) return LineEnd::OfRow;
        if (!line.starts_with(delimiter)) return LineEnd::AfterStrayQuote;
        line.remove_prefix(delimiter.size());
        quoted = false;
    }
}

}  // namespace

std::string_view RowReader::ReadRow() {
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

}  // namespace vexlator::importer
