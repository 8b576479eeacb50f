// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/job/JobTable.h"

#include "formats/SourceText.h"
#include "platform/Errors.h"
#include "util/Files.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::formats {

namespace {

RecordKind KindOf(std::string_view line) {
    std::string_view first = line.substr(0, line.find(','));
    if (first.starts_with('$'))
        return first == "$GIS"   ? RecordKind::GisPosition
               : first == "$GPS" ? RecordKind::GpsPosition
                                 : RecordKind::OtherPosition;
    if (first.starts_with('=')) return RecordKind::Coordinates;
    if (first.starts_with('*')) return RecordKind::Superseded;
    if (first == " DB") return RecordKind::Attributes;
    return first == "CO" ? RecordKind::Command : RecordKind::Other;
}

}  // namespace

JobTable::JobTable(std::string_view text) : text_(text) {
    // Lines of devices are seldom shorter. Too little space only costs a move.
    constexpr std::size_t usualLine = 32;
    rows_.reserve(text.size() / usualLine + 1);
    for (util::LineReader lines(text); !lines.AtEnd();) {
        std::string_view line = lines.ReadTextLine();
        Append(line, lines.Line());
    }
}

void JobTable::Append(std::string_view line, std::uint64_t number) {
    CheckLineLength(line, number);
    if (rows_.size() >= noRow)
        throw platform::ReadError("", platform::ReadError::AtLine(number), "is too much for a job file");
    std::size_t fields = static_cast<std::size_t>(std::count(line.begin(), line.end(), ',')) + 1;
    if (fields > width_) {
        width_ = fields;
        widestLine_ = number;
    }
    RecordKind kind = KindOf(line);
    if (kind == RecordKind::Other && !rows_.empty() && rows_.back().kind == RecordKind::Other) return;
    rows_.push_back({line.data(), static_cast<std::uint32_t>(line.size()), kind});
}

std::uint64_t JobTable::LineNumber(Row row) const {
    util::LineReader lines(text_);
    const auto place = static_cast<std::size_t>(rows_[row].text - text_.data());
    while (!lines.AtEnd() && lines.Position() <= place) lines.ReadTextLine();
    return lines.Line();
}

std::string_view JobTable::Field(Row row, std::size_t index) const {
    return util::GetCommaField(index, Line(row));
}

std::string_view CellCursor::Next() {
    if (atEnd_) return {};
    std::size_t comma = left_.find(',');
    std::string_view cell = left_.substr(0, comma);
    atEnd_ = comma == std::string_view::npos;
    if (!atEnd_) left_.remove_prefix(comma + 1);
    return cell;
}

}  // namespace vexlator::formats
