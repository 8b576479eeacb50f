// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/csv/CsvImportSettings.h"

#include "import/FeatureCode.h"
#include "platform/AsciiCase.h"

#include <string_view>

namespace vexlator::importer {

namespace {

/// The values in gv.ini.
struct IniSettings : formats::CsvTable {
    std::string separator, fixedFeature;
};

using Keys = config::Keys<IniSettings>;

constexpr config::KeyOf<IniSettings> keys[] = {
    Keys::Text("CSVIN", "East", &IniSettings::east,
               "name of the east column. In files without a header: its position, counted from 0",
               "none; position 0"),
    Keys::Text("CSVIN", "North", &IniSettings::north,
               "name of the north column. In files without a header: its position, counted from 0",
               "none; position 0"),
    Keys::Text("CSVIN", "Key", &IniSettings::key,
               "name of the key column. In files without a header: its position, counted from 0",
               "none; position 0"),
    Keys::Text("CSVIN", "FixedFeature", &IniSettings::fixedFeature,
               "feature code of the features of every file", "the file's name"),
    Keys::Text("CSVIN", "Separator", &IniSettings::separator, "TAB: tabs separate the fields", "commas"),
    Keys::Switch("CSVIN", "header", &IniSettings::header, "files have a header line"),
};

}  // namespace

CsvImportSettings ReadCsvImportSettings(const config::Run& run) {
    auto ini = config::ReadKeys<IniSettings>(run.Installation(), keys);
    if (platform::SameNoCase(ini.separator, "TAB")) ini.delimiter = '\t';
    return {ini, Capitals(ini.fixedFeature)};
}

config::KeyList CsvImportKeys() {
    return config::ListOf<IniSettings>(keys);
}

std::string WhatToSet(const formats::CsvTable& table, const formats::CsvColumns& columns) {
    std::string missing;
    auto check = [&](std::string_view key, const std::string& name, int position) {
        if (name.empty() || position < 0) missing += (missing.empty() ? "" : ", ") + std::string(key);
    };
    check("Key", table.key, columns.Key());
    check("East", table.east, columns.East());
    check("North", table.north, columns.North());
    if (missing.empty() || !table.header) return "";
    return "set [CSVIN] " + missing + " in gv.ini to columns that it has: " + columns.Header();
}

}  // namespace vexlator::importer
