// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/CsvSettings.h"

#include "export/ExportSettings.h"

#include <string>

namespace vexlator::exporter {

namespace {

/// The values in gv.ini, before they become a layout.
struct IniSettings : CsvSettings {
    bool quote = false, safeFormulas = false, byteOrderMark = false;
    std::string separator, hyperlinksText;
};

using Keys = config::Keys<IniSettings>;

constexpr config::KeyOf<IniSettings> keys[] = {
    Keys::Flag("CSV", "SepFiles", &IniSettings::sepFiles, "each feature code gets a file of its own"),
    Keys::Switch("CSV", "header", &IniSettings::header,
                 "a header row precedes the rows of each feature code"),
    Keys::Text("CSV", "Separator", &IniSettings::separator, "TAB: tabs separate the fields", "commas"),
    Keys::Switch("CSV", "Coords", &IniSettings::coords, "rows have a coordinate column"),
    Keys::Flag("CSV", "LatLng", &IniSettings::latLng, "coordinates of points are in latitude/longitude"),
    Keys::Flag("CSV", "MultiXYZ", &IniSettings::multiXYZ, "rows end with separate x, y and z columns"),
    Keys::Number("CSV", "DP", &IniSettings::decimals, "number of decimal places of x and y", "3", 0, 15),
    Keys::Flag("CSV", "Quote", &IniSettings::quote,
               "fields are quoted as in RFC 4180. Off: commas inside values act as separators"),
    Keys::Flag("CSV", "SafeFormulas", &IniSettings::safeFormulas,
               "a ' is put before values that begin with = + - or @, except numbers. Spreadsheets then show "
               "the values and never run them as formulas. Use it for files that people open, not for files "
               "that programs read"),
    Keys::Flag("CSV", "BOM", &IniSettings::byteOrderMark,
               "files are UTF-8 with a byte-order mark. Off: they are Windows-1252"),
    Keys::Text("PHOTO", "ExportAsHyperlinks", &IniSettings::hyperlinksText,
               "any value: CSV exports write photographs as spreadsheet links", "off"),
};

}  // namespace

CsvSettings ReadCsvSettings(const config::Run& run, CsvFlavour flavour) {
    auto ini = config::ReadKeys<IniSettings>(run.Installation(), keys);
    ini.extension = ".CSV";
    ini.suppressNA = ReadExportSettings(run).suppressNA;
    ini.layout = {ini.separator == "TAB" ? '\t' : ',', ini.quote, ini.safeFormulas, ini.byteOrderMark};
    CsvSettings settings = flavour == CsvFlavour::Csv ? ini : CsvSettings();
    settings.hyperlinks = !ini.hyperlinksText.empty();
    return settings;
}

config::KeyList CsvKeys() {
    return config::ListOf<IniSettings>(keys);
}

}  // namespace vexlator::exporter
