// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Keys.h"

#include "background/builder/BuildSettings.h"
#include "coords/TransformationSetting.h"
#include "corporate/handoff/Handoff.h"
#include "drawing/FieldMapping.h"
#include "export/ExportSettings.h"
#include "export/csv/CsvSettings.h"
#include "export/dbf/DbfSettings.h"
#include "export/dxf/CadSettings.h"
#include "export/environment/frmENV.h"
#include "export/kml/frmKML.h"
#include "export/mif/MifSettings.h"
#include "export/photos/Photos.h"
#include "export/shapefile/ShapefileSettings.h"
#include "export/xls/frmXLS.h"
#include "gpx/GpxSettings.h"
#include "import/csv/CsvImportSettings.h"
#include "import/gis/frmFromGIS.h"
#include "import/gml/frmFromGML.h"
#include "import/job/JobSettings.h"
#include "import/mif/frmFromMID.h"
#include "import/shapefile/ShapeImportSettings.h"
#include "mapbook/BookSettings.h"
#include "startup/ConversionRun.h"
#include "startup/Settings.h"
#include "startup/go/SourceConversion.h"
#include "workflow/JobPackage.h"
#include "workflow/WorkflowDatabase.h"

#include <algorithm>

namespace vexlator::startup {

namespace {

/// What else the selection window and a GO command leave in gv.ini.
config::KeyList WindowKeys() {
    return {
        {"OPTION", "",
         "what the selection window's controls were left at, one key per control; written by the program"},
        {"GRP", "SimpleStyling",
         "1: in the styling window one colour serves points, lines and areas; written by the program"},
    };
}

}  // namespace

config::KeyList AllKeys() {
    config::KeyList keys;
    for (const config::KeyList& list : {SharedKeys(),
                                        SourceKeys(),
                                        coords::CoordinateKeys(),
                                        exporter::PhotoKeys(),
                                        exporter::KmlKeys(),
                                        exporter::CsvKeys(),
                                        exporter::CadExportKeys(),
                                        exporter::ExportKeys(),
                                        exporter::DbfKeys(),
                                        corporate::CorporateKeys(),
                                        exporter::EnvironmentKeys(),
                                        exporter::XlsKeys(),
                                        importer::CsvImportKeys(),
                                        exporter::ShapefileKeys(),
                                        importer::ShapeImportKeys(),
                                        exporter::MifKeys(),
                                        importer::MifImportKeys(),
                                        importer::GmlKeys(),
                                        importer::TabImportKeys(),
                                        importer::JobKeys(),
                                        gpx::GpxKeys(),
                                        mapbook::BookKeys(),
                                        background::PackageBuildKeys(),
                                        drawing::TemplateKeys(),
                                        drawing::FeatureChangeKeys(),
                                        workflow::PackageKeys(),
                                        workflow::WorkflowKeys(),
                                        GoKeys(),
                                        WindowKeys()})
        keys.insert(keys.end(), list.begin(), list.end());
    std::vector<std::string_view> sections;
    for (const config::Key& key : keys)
        if (std::ranges::find(sections, key.section) == sections.end()) sections.push_back(key.section);
    std::ranges::stable_sort(keys, {}, [&](const config::Key& key) {
        return std::ranges::find(sections, key.section) - sections.begin();
    });
    return keys;
}

std::string SettingsPage() {
    std::string page =
        "# Settings\n\nEvery key of `gv.ini`, as `vexlator --settings` prints it. A flag is on when its "
        "value is exactly 1. An empty or\nmissing key has its default.\n";
    std::string_view section;
    for (const config::Key& key : AllKeys()) {
        if (key.section != section)
            page.append("\n## [").append(section = key.section).append("]\n\n| key | meaning |\n|---|---|\n");
        std::string name = key.name.empty() ? "any name" : "`" + std::string(key.name) + "`";
        page.append("| ").append(name).append(" | ").append(key.Explanation()).append(" |\n");
    }
    return page;
}

}  // namespace vexlator::startup
