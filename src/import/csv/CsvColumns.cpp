// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/csv/CsvColumns.h"

#include "import/FeatureCode.h"
#include "import/csv/CsvRecords.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace vexlator::importer {

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

/// What gv.ini says.
struct IniSettings : CsvSettings {
    std::string separator;
};

using Keys = config::Keys<IniSettings>;

constexpr config::KeyOf<IniSettings> keys[] = {
    Keys::Text("CSVIN", "East", &IniSettings::east,
               "name of the east column; without a header its position from 0", "none; position 0"),
    Keys::Text("CSVIN", "North", &IniSettings::north,
               "name of the north column; without a header its position from 0", "none; position 0"),
    Keys::Text("CSVIN", "Key", &IniSettings::key,
               "name of the key column; without a header its position from 0", "none; position 0"),
    Keys::Text("CSVIN", "FixedFeature", &IniSettings::fixedFeature, "feature code of every file",
               "the file's name"),
    Keys::Text("CSVIN", "Separator", &IniSettings::separator, "TAB: fields are separated by tabs",
               "by commas"),
    Keys::Switch("CSVIN", "header", &IniSettings::header, "the files have a header line"),
};

}  // namespace

CsvSettings ReadCsvSettings(const config::Run& run) {
    auto settings = config::ReadKeys<IniSettings>(run.Installation(), keys);
    if (platform::SameNoCase(settings.separator, "TAB")) settings.delimiter = '\t';
    settings.fixedFeature = Capitals(settings.fixedFeature);
    return settings;
}

config::KeyList CsvImportKeys() {
    return config::ListOf<IniSettings>(keys);
}

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

CsvColumns::CsvColumns(const CsvSettings& settings) : settings_(settings) {
    if (settings.header) return;
    east_ = PositionOf(settings.east);
    north_ = PositionOf(settings.north);
    key_ = PositionOf(settings.key);
    CountFields(0);
}

void CsvColumns::CountFields(std::size_t ofHeader) {
    count_ = std::max(ofHeader, static_cast<std::size_t>(std::max({east_, north_, key_, -1}) + 1));
}

void CsvColumns::ReadCsvHeader(std::string_view line) {
    std::string unquoted;
    if (HasQuotedFields(line, settings_.delimiter))
        line = unquoted = UnquoteCsvLine(line, settings_.delimiter);
    std::vector<std::string_view> fields;
    SplitCsvLine(line, settings_.delimiter, mostColumns + 1, fields);
    if (fields.size() > mostColumns) throw platform::ReadError("", "line 1", "more than 32,767 columns");
    FindPositions(fields);
    CountFields(fields.size());
    header_ = NamesForPeople(fields);
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

std::string CsvColumns::WhatToSet() const {
    std::string keys;
    auto check = [&](std::string_view key, const std::string& name, int position) {
        if (name.empty() || position < 0) keys += (keys.empty() ? "" : ", ") + std::string(key);
    };
    check("Key", settings_.key, key_);
    check("East", settings_.east, east_);
    check("North", settings_.north, north_);
    if (keys.empty() || !settings_.header) return "";
    return "set [CSVIN] " + keys + " in gv.ini to columns that it has: " + header_;
}

void CsvColumns::FindPositions(std::span<const std::string_view> fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i] == settings_.east) east_ = static_cast<int>(i);
        if (fields[i] == settings_.north) north_ = static_cast<int>(i);
        if (fields[i] == settings_.key) key_ = static_cast<int>(i);
    }
}

}  // namespace vexlator::importer
