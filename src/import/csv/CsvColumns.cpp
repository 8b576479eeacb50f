// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/csv/CsvColumns.h"

#include "import/FeatureCode.h"
#include "import/csv/CsvRecords.h"
#include "platform/Paths.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace vexlator::importer {

namespace {

constexpr int keyWidth = 16;
constexpr int attributeWidth = 64;

int PositionOf(std::string_view text) {
    return static_cast<int>(
        std::clamp<std::int64_t>(util::IntegerOf(text), -1, std::numeric_limits<std::int16_t>::max()));
}

bool HasQuotedFields(std::string_view line, char delimiter) {
    return line.starts_with('"') || line.find(std::string{delimiter, '"'}) != std::string_view::npos;
}

/// "DEPTH <m>" names the attribute DEPTH.
std::string AttributeNameOf(std::string_view field) {
    return std::string(util::Trim(field.substr(0, field.find('<'))));
}

}  // namespace

CsvSettings ReadCsvSettings(const config::Session& session) {
    auto read = [&](std::string_view key) { return session.ReadIni("CSVIN", key); };
    CsvSettings settings;
    settings.header = read("header") != "0";
    if (platform::SameNoCase(read("Separator"), "TAB")) settings.delimiter = '\t';
    settings.fixedFeature = Capitals(read("FixedFeature"));
    settings.east = read("East");
    settings.north = read("North");
    settings.key = read("Key");
    return settings;
}

void SplitCsvLine(std::string_view line, char delimiter, std::vector<std::string_view>& fields) {
    fields.clear();
    for (;;) {
        std::size_t end = line.find(delimiter);
        fields.push_back(line.substr(0, end));
        if (end == std::string_view::npos) return;
        line.remove_prefix(end + 1);
    }
}

CsvColumns::CsvColumns(const CsvSettings& settings) : settings_(settings) {
    if (settings.header) return;
    east_ = PositionOf(settings.east);
    north_ = PositionOf(settings.north);
    key_ = PositionOf(settings.key);
}

void CsvColumns::ReadCsvHeader(std::string_view line) {
    std::string unquoted;
    if (HasQuotedFields(line, settings_.delimiter))
        line = unquoted = UnquoteCsvLine(line, settings_.delimiter);
    std::vector<std::string_view> fields;
    SplitCsvLine(line, settings_.delimiter, fields);
    FindPositions(fields);
    names_ = {settings_.key};
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
        if (fields[i] == settings_.east) east_ = static_cast<int>(i);
        if (fields[i] == settings_.north) north_ = static_cast<int>(i);
        if (fields[i] == settings_.key) key_ = static_cast<int>(i);
    }
}

}  // namespace vexlator::importer
