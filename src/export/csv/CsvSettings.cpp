// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/CsvSettings.h"

#include "export/ExportSettings.h"

#include <string>

namespace vexlator::exporter {

namespace {

/// What gv.ini says, before it becomes a layout.
struct IniSettings : CsvSettings {
    bool quote = false, safeFormulas = false, byteOrderMark = false;
    std::string separator, hyperlinksText;
};

using Keys = config::Keys<IniSettings>;

constexpr config::KeyOf<IniSettings> keys[] = {
    Keys::Flag("CSV", "SepFiles", &IniSettings::sepFiles,
               "one file per feature code instead of one per drawing"),
    Keys::Switch("CSV", "header", &IniSettings::header, "a header row before the rows of each feature code"),
    Keys::Text("CSV", "Separator", &IniSettings::separator, "TAB: fields are separated by tabs", "by commas"),
    Keys::Switch("CSV", "Coords", &IniSettings::coords, "a coordinate column"),
    Keys::Flag("CSV", "LatLng", &IniSettings::latLng, "coordinates of points in latitude/longitude"),
    Keys::Flag("CSV", "MultiXYZ", &IniSettings::multiXYZ,
               "coordinates again as columns of their own at the end of the row"),
    Keys::Number("CSV", "DP", &IniSettings::decimals, "decimal places of x and y", "3", 0, 15),
    Keys::Flag("CSV", "Quote", &IniSettings::quote,
               "fields are quoted as RFC 4180 has it; else commas inside values become separators"),
    Keys::Flag(
        "CSV", "SafeFormulas", &IniSettings::safeFormulas,
        "values that begin with = + - or @ and are no numbers get a ' in front, so that spreadsheets show "
        "them and never run them; for files that people open, not for those that programs read"),
    Keys::Flag("CSV", "BOM", &IniSettings::byteOrderMark,
               "files are UTF-8 and begin with a byte-order mark; else they are Windows-1252"),
    Keys::Text("PHOTO", "ExportAsHyperlinks", &IniSettings::hyperlinksText,
               "anything: CSV exports write photographs as spreadsheet links", "off"),
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
