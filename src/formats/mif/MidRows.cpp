// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/mif/MidRows.h"

#include <utility>

namespace vexlator::formats {

namespace {

/// The end of the last row with contents; old programs end a file with Ctrl-Z.
std::size_t EndOfRows(std::string_view text) {
    return text.find_last_not_of(" \t\r\n\x1A") + 1;
}

}  // namespace

std::string UndeclaredDelimiter(std::string_view text, std::size_t columnCount) {
    constexpr std::size_t searched = std::size_t{64} << 10;
    if (columnCount < 2) return ",";
    util::LineReader lines(text.substr(0, searched));
    while (!lines.AtEnd()) {
        std::size_t tabs = 0, commas = 0;
        bool quoted = false;
        for (char c : lines.ReadTextLine()) {
            if (c == '"') quoted = !quoted;
            if (c == '\t' && !quoted) ++tabs;
            if (c == ',' && !quoted) ++commas;
        }
        if (tabs > 0) return tabs >= commas || tabs + 1 >= columnCount ? "\t" : ",";
        if (commas > 0) break;
    }
    return ",";
}

MidRows::MidRows(std::string_view text, std::string delimiter, std::size_t columnCount,
                 platform::Decoder& decoder)
    : delimiter_(std::move(delimiter)),
      columnCount_(columnCount),
      decoder_(decoder),
      rows_(text, delimiter_),
      end_(EndOfRows(text)) {}

bool MidRows::AtEnd() const {
    return rows_.Position() >= end_;
}

std::string MidRows::ReadRow() {
    return decoder_.Decode(rows_.ReadRow());
}

std::span<const std::string_view> MidRows::ReadValues() {
    std::string_view row = rows_.ReadRow();
    if (!platform::IsAscii(row)) {
        decoded_.clear();
        decoder_.Append(decoded_, row);
        row = decoded_;
    }
    Transform(row);
    views_.clear();
    std::size_t begin = 0;
    for (std::size_t end : ends_) {
        views_.push_back(std::string_view(values_).substr(begin, end - begin));
        begin = end;
    }
    return views_;
}

/// Three rules, one after the other for each character: a "," that does not separate becomes "/"; the
/// delimiter becomes ","; and a "," inside quotes becomes ";".
void MidRows::Transform(std::string_view row) {
    values_.clear();
    ends_.clear();
    bool isComma = delimiter_ == ",";
    bool isQuote = delimiter_ == "\"";  // then no quotes are left to be inside of
    bool quoted = false;
    while (!row.empty() && ends_.size() < columnCount_) {
        bool separates = row.starts_with(delimiter_);
        char c = row[0];
        row.remove_prefix(separates ? delimiter_.size() : 1);
        if (c == '"' && !isQuote) {
            quoted = !quoted;
            continue;
        }
        if (c == ',' && (quoted || !isComma)) {
            c = '/';
            separates = delimiter_ == "/";
        }
        if (separates && !quoted)
            ends_.push_back(values_.size());
        else
            values_ += separates ? ';' : c;
    }
    if (ends_.size() < columnCount_) ends_.push_back(values_.size());
}

}  // namespace vexlator::formats
