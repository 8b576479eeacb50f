// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/csv/CsvWriter.h"

#include "formats/QuotedText.h"
#include "platform/CodePages.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <charconv>

namespace vexlator::formats {

namespace {

constexpr int heightDecimals = 3;

bool IsNumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    if (text.empty() || text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return false;
    double value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error != std::errc::invalid_argument && end == text.data() + text.size();
}

/// Spreadsheets strip quotes, blanks, tabs and carriage returns before they interpret a value.
bool MayRun(std::string_view text) {
    constexpr std::string_view starts = "=+-@\t\r";
    text = util::Trim(text, "\" ");
    return !text.empty() && starts.find(text.front()) != std::string_view::npos && !IsNumber(text);
}

}  // namespace

CsvLosses& CsvLosses::operator+=(const CsvLosses& other) {
    replaced += other.replaced;
    broken += other.broken;
    return *this;
}

CsvLosses& CsvLosses::operator-=(const CsvLosses& other) {
    replaced -= other.replaced;
    broken -= other.broken;
    return *this;
}

CsvWriter::CsvWriter(platform::OutputFile& file, const CsvLayout& layout)
    : file_(&file),
      layout_(layout),
      encoder_(layout.byteOrderMark ? TextEncoding::Utf8 : TextEncoding::Windows1252) {
    if (layout.byteOrderMark) file_->Write(platform::byteOrderMark);
}

void CsvWriter::BeginField() {
    if (rowBegun_) {
        *file_->Reserve(1) = layout_.separator;
        file_->Advance(1);
    }
    rowBegun_ = true;
}

bool CsvWriter::BreaksRow(std::string_view text) const {
    return NeedsQuotes(text, layout_.separator) ||
           (layout_.separator != ',' && text.find(',') != std::string_view::npos);
}

/// Writes the bytes of a text. Counts texts that break the row.
std::string_view CsvWriter::Encode(std::string_view text) {
    text = encoder_.Encode(text);
    if (!layout_.quote && BreaksRow(text)) ++broken_;
    return text;
}

std::string_view CsvWriter::MadeSafe(std::string_view text, bool isFormula) {
    safe_.clear();
    // Without quotes, each of these starts another cell.
    std::string_view ends = layout_.quote ? "" : layout_.separator == '\t' ? ",\t\r\n" : ",\r\n";
    for (bool first = true;; first = false) {
        std::size_t end = std::min(text.find_first_of(ends), text.size());
        std::string_view cell = text.substr(0, end);
        if (MayRun(cell) && !(first && isFormula)) safe_ += '\'';
        safe_ += cell;
        if (end == text.size()) return safe_;
        safe_ += text[end];
        text.remove_prefix(end + 1);
    }
}

void CsvWriter::Write(std::string_view text) {
    if (layout_.quote) {
        if (NeedsQuotes(text, layout_.separator)) {
            written_.clear();
            AppendQuoted(written_, text);
            text = written_;
        }
    } else if (layout_.separator != ',' && text.find(',') != std::string_view::npos) {
        written_ = text;
        std::replace(written_.begin(), written_.end(), ',', layout_.separator);
        text = written_;
    }
    file_->Write(text);
}

void CsvWriter::AddText(std::string_view text) {
    BeginField();
    if (!layout_.safeFormulas && IsSimple(text)) return file_->Write(text);
    text = Encode(text);
    Write(layout_.safeFormulas ? MadeSafe(text, false) : text);
}

void CsvWriter::AddHyperlink(std::string_view target) {
    BeginField();
    target = Encode(target);
    formula_ = "=hyperlink(";
    if (layout_.safeFormulas)
        AppendQuoted(formula_, target);
    else
        formula_.append("\"").append(target).append("\"");
    formula_ += ')';
    Write(layout_.safeFormulas ? MadeSafe(formula_, true) : formula_);
}

void CsvWriter::AddPosition(const util::PlanePoint& point, double height, const CsvCoordinates& as,
                            char between) {
    char* begin = file_->Reserve(3 * util::longestFixed + 3);
    char* out = util::WriteFixed(begin, point.x, as.decimals);
    *out++ = between;
    out = util::WriteFixed(out, point.y, as.decimals);
    *out++ = between;
    out = util::WriteFixed(out, height, heightDecimals);
    if (as.list) *out++ = ':';
    file_->Advance(static_cast<std::size_t>(out - begin));
}

void CsvWriter::AddCoordinates(const CsvCoordinates& coordinates, bool spread) {
    BeginField();
    char between = spread ? layout_.separator : ' ';
    for (std::size_t i = 0; i < coordinates.points.size(); ++i) {
        double height = coordinates.heights.empty() ? 0 : coordinates.heights[i];
        AddPosition(coordinates.points[i], height, coordinates, between);
    }
}

void CsvWriter::EndRow() {
    file_->Write("\r\n");
    rowBegun_ = false;
}

}  // namespace vexlator::formats
