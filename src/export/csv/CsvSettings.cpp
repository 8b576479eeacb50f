// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/CsvSettings.h"

#include "util/Numbers.h"

#include <algorithm>
#include <string>

namespace vexlator::exporter {

CsvSettings ReadCsvSettings(const config::Session& session, CsvFlavour flavour) {
    CsvSettings settings;
    settings.hyperlinks = !session.ReadIni("PHOTO", "ExportAsHyperlinks").empty();
    if (flavour == CsvFlavour::Asc) return settings;
    auto flag = [&](std::string_view key) { return session.ReadIniFlag("CSV", key); };
    settings.extension = ".CSV";
    settings.sepFiles = flag("SepFiles");
    settings.header = session.ReadIni("CSV", "header") != "0";
    settings.coords = session.ReadIni("CSV", "Coords") != "0";
    settings.latLng = flag("LatLng");
    settings.suppressNA = flag("SuppressNA");
    settings.multiXYZ = flag("MultiXYZ");
    std::string decimals = session.ReadIni("CSV", "DP");
    if (!decimals.empty())
        settings.decimals = static_cast<int>(std::clamp<std::int64_t>(util::IntegerOf(decimals), 0, 15));
    settings.layout.separator = session.ReadIni("CSV", "Separator") == "TAB" ? '\t' : ',';
    settings.layout.quote = flag("Quote");
    settings.layout.safeFormulas = flag("SafeFormulas");
    settings.layout.byteOrderMark = flag("BOM");
    return settings;
}

}  // namespace vexlator::exporter
