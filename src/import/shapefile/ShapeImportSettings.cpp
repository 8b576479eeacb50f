// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/shapefile/ShapeImportSettings.h"

namespace vexlator::importer {

namespace {

using Keys = config::Keys<ShapeImportSettings>;

constexpr config::KeyOf<ShapeImportSettings> keys[] = {
    Keys::Flag("SHPin", "LL", &ShapeImportSettings::degrees,
               "shapefiles to import are in latitude/longitude"),
    Keys::Flag("SHPin", "USFT", &ShapeImportSettings::feet, "shapefiles to import are in feet"),
    Keys::Flag("SHPin", "FOLLOWPRJ", &ShapeImportSettings::followPrj,
               "imports convert from the coordinate system of a shapefile's .PRJ if it differs from these "
               "settings. Off: they only report the difference",
               true),
    Keys::Text("GENERAL", "CUSTOMERMODE", &ShapeImportSettings::customer,
               "import rules of a customer. CORVANTEX: every shapefile gets the feature code PIPES", "none"),
};

}  // namespace

ShapeImportSettings ReadShapeImportSettings(const config::Run& run) {
    return config::ReadKeys<ShapeImportSettings>(run.Installation(), keys);
}

config::KeyList ShapeImportKeys() {
    return config::ListOf<ShapeImportSettings>(keys);
}

}  // namespace vexlator::importer
