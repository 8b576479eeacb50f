// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/CsvSettings.h"

#include "util/Numbers.h"

#include <algorithm>
#include <string>

namespace vexlator::exporter {

CsvSettings ReadCsvSettings(const config::Run& run, CsvFlavour flavour) {
    CsvSettings settings;
    settings.hyperlinks = !run.ReadIni("PHOTO", "ExportAsHyperlinks").empty();
    if (flavour == CsvFlavour::Asc) return settings;
    auto flag = [&](std::string_view key) { return run.ReadIniFlag("CSV", key); };
    settings.extension = ".CSV";
    settings.sepFiles = flag("SepFiles");
    settings.header = run.ReadIni("CSV", "header") != "0";
    settings.coords = run.ReadIni("CSV", "Coords") != "0";
    settings.latLng = flag("LatLng");
    settings.suppressNA = flag("SuppressNA");
    settings.multiXYZ = flag("MultiXYZ");
    std::string decimals = run.ReadIni("CSV", "DP");
    if (!decimals.empty())
        settings.decimals = static_cast<int>(std::clamp<std::int64_t>(util::IntegerOf(decimals), 0, 15));
    settings.layout.separator = run.ReadIni("CSV", "Separator") == "TAB" ? '\t' : ',';
    settings.layout.quote = flag("Quote");
    settings.layout.safeFormulas = flag("SafeFormulas");
    settings.layout.byteOrderMark = flag("BOM");
    return settings;
}

}  // namespace vexlator::exporter
