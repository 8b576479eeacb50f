// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/mif/MifWriter.h"

#include "formats/QuotedText.h"
#include "util/Numbers.h"

#include <algorithm>

namespace vexlator::formats {

namespace {

constexpr int coordinateDecimals = 3;
constexpr char delimiter = ',';

std::string_view CharsetName(TextEncoding encoding) {
    return encoding == TextEncoding::Utf8 ? "UTF-8" : "WindowsLatin1";
}

}  // namespace

MifWriter::MifWriter(platform::OutputFile& mif, platform::OutputFile& mid, const MifHeader& header,
                     TextEncoding encoding)
    : mif_(mif), mid_(mid), encoder_(encoding) {
    WriteHeader(header);
}

void MifWriter::WriteHeader(const MifHeader& header) {
    std::string text = "Version 450\r\nCharset \"";
    text.append(CharsetName(encoder_.Encoding())).append("\"\r\nDelimiter \",\"\r\nIndex 1\r\n");
    text.append(header.coordSys).append("\r\nColumns ").append(std::to_string(header.columns.size()));
    text += "\r\n";
    for (const MifColumn& column : header.columns)
        text.append("  " + column.name + " " + column.type + "\r\n");
    text += "Data\r\n\r\n";
    mif_.Write(encoder_.Encode(text));
}

void MifWriter::WriteCount(std::string_view before, std::size_t count) {
    mif_.Write(before);
    mif_.Write(std::to_string(count));
    mif_.Write("\r\n");
}

void MifWriter::WriteCoordinates(std::string_view before, const util::PlanePoint& point) {
    char* begin = mif_.Reserve(before.size() + 2 * util::longestFixed + 3);
    char* out = std::copy(before.begin(), before.end(), begin);
    out = util::WriteFixed(out, point.x, coordinateDecimals);
    *out++ = ' ';
    out = util::WriteFixed(out, point.y, coordinateDecimals);
    *out++ = '\r';
    *out++ = '\n';
    mif_.Advance(static_cast<std::size_t>(out - begin));
}

void MifWriter::AddNone() {
    mif_.Write("None\r\n");
}

void MifWriter::AddPoint(const util::PlanePoint& point) {
    WriteCoordinates("Point ", point);
    mif_.Write("    Symbol (35,255,12)\r\n");
}

void MifWriter::AddPolyline(std::span<const util::PlanePoint> points) {
    WriteCount("Pline ", points.size());
    for (const util::PlanePoint& point : points) WriteCoordinates("", point);
    mif_.Write("    Pen (1,2,12550144)\r\n");
}

void MifWriter::AddRegion(std::span<const util::PlanePoint> points) {
    WriteCount("Region 1\r\n  ", points.size());
    for (const util::PlanePoint& point : points) WriteCoordinates("", point);
    mif_.Write("    Pen(1, 1, 16576)\r\n    Brush (2,8388607,16777215)\r\n");
}

void MifWriter::AddValue(std::string_view value) {
    if (rowBegun_) {
        *mid_.Reserve(1) = delimiter;
        mid_.Advance(1);
    }
    rowBegun_ = true;
    if (IsSimple(value)) return mid_.Write(value);
    value = encoder_.Encode(value);
    if (NeedsQuotes(value, delimiter)) {
        quoted_.clear();
        AppendQuoted(quoted_, value);
        value = quoted_;
    }
    mid_.Write(value);
}

void MifWriter::EndRow() {
    mid_.Write("\r\n");
    rowBegun_ = false;
}

}  // namespace vexlator::formats
