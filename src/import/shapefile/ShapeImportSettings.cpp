// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/shapefile/ShapeImportSettings.h"

namespace vexlator::importer {

namespace {

using Keys = config::Keys<ShapeImportSettings>;

constexpr config::KeyOf<ShapeImportSettings> keys[] = {
    Keys::Flag("SHPin", "LL", &ShapeImportSettings::degrees, "shapefile imports are in latitude/longitude"),
    Keys::Flag("SHPin", "USFT", &ShapeImportSettings::feet, "shapefile imports are in feet"),
    Keys::Flag(
        "SHPin", "FOLLOWPRJ", &ShapeImportSettings::followPrj,
        "where the .PRJ of a shapefile names another coordinate system than these settings, its coordinates "
        "are converted from that system to the drawings'; else the difference is only told",
        true),
    Keys::Text("GENERAL", "CUSTOMERMODE", &ShapeImportSettings::customer,
               "import rules of one customer: CORVANTEX gives every shapefile the feature code PIPES",
               "none"),
};

}  // namespace

ShapeImportSettings ReadShapeImportSettings(const config::Run& run) {
    return config::ReadKeys<ShapeImportSettings>(run.Installation(), keys);
}

config::KeyList ShapeImportKeys() {
    return config::ListOf<ShapeImportSettings>(keys);
}

}  // namespace vexlator::importer
