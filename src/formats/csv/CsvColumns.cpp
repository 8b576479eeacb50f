// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/csv/CsvColumns.h"

#include "formats/csv/CsvRecords.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace vexlator::formats {

namespace {

constexpr int keyWidth = 16;
constexpr int attributeWidth = 64;
constexpr int mostColumns = std::numeric_limits<std::int16_t>::max();

int PositionOf(std::string_view text) {
    return static_cast<int>(std::clamp<std::int64_t>(util::IntegerOf(text), -1, mostColumns));
}

bool HasQuotedFields(std::string_view line, char delimiter) {
    return line.starts_with('"') || line.find(std::string{delimiter, '"'}) != std::string_view::npos;
}

/// "DEPTH <m>" names the attribute DEPTH.
std::string AttributeNameOf(std::string_view field) {
    return std::string(util::Trim(field.substr(0, field.find('<'))));
}

std::string NamesForPeople(std::span<const std::string_view> fields) {
    constexpr std::size_t longest = 400;
    std::string names;
    for (std::size_t i = 0; i < fields.size() && names.size() <= longest; ++i)
        names += (i == 0 ? "" : ", ") + std::string(util::Trim(fields[i]).substr(0, longest));
    std::ranges::replace_if(
        names, [](unsigned char c) { return c < ' '; }, ' ');
    return names.size() <= longest ? names : std::string(platform::CutUtf8(names, longest)) + " ...";
}

}  // namespace

void SplitCsvLine(std::string_view line, char delimiter, std::size_t most,
                  std::vector<std::string_view>& fields) {
    fields.clear();
    while (fields.size() < most) {
        std::size_t end = line.find(delimiter);
        fields.push_back(line.substr(0, end));
        if (end == std::string_view::npos) return;
        line.remove_prefix(end + 1);
    }
}

CsvColumns::CsvColumns(CsvTable table) : table_(std::move(table)) {
    if (table_.header) return;
    east_ = PositionOf(table_.east);
    north_ = PositionOf(table_.north);
    key_ = PositionOf(table_.key);
    CountFields(0);
}

void CsvColumns::CountFields(std::size_t ofHeader) {
    count_ = std::max(ofHeader, static_cast<std::size_t>(std::max({east_, north_, key_, -1}) + 1));
}

void CsvColumns::ReadCsvHeader(std::string_view line) {
    std::string unquoted;
    if (HasQuotedFields(line, table_.delimiter)) line = unquoted = UnquoteCsvLine(line, table_.delimiter);
    std::vector<std::string_view> fields;
    SplitCsvLine(line, table_.delimiter, mostColumns + 1, fields);
    if (fields.size() > mostColumns) throw platform::ReadError("", "line 1", "more than 32,767 columns");
    FindPositions(fields);
    CountFields(fields.size());
    header_ = NamesForPeople(fields);
    names_ = {table_.key};
    widths_ = {keyWidth};
    attributeColumns_.assign(fields.size(), false);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (IsKeyOrCoordinate(static_cast<int>(i)) || fields[i].empty()) continue;
        attributeColumns_[i] = true;
        names_.push_back(AttributeNameOf(fields[i]));
        widths_.push_back(attributeWidth);
    }
}

void CsvColumns::FindPositions(std::span<const std::string_view> fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i] == table_.east) east_ = static_cast<int>(i);
        if (fields[i] == table_.north) north_ = static_cast<int>(i);
        if (fields[i] == table_.key) key_ = static_cast<int>(i);
    }
}

}  // namespace vexlator::formats
