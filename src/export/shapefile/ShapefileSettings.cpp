// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/shapefile/ShapefileSettings.h"

#include "export/ExportSettings.h"

namespace vexlator::exporter {

namespace {

using Keys = config::Keys<ShapefileSettings>;

constexpr config::KeyOf<ShapefileSettings> keys[] = {
    Keys::Flag("SHPout", "LL", &ShapefileSettings::latLng, "shapefile exports in latitude/longitude"),
    Keys::Text(
        "SHPout", "PRJ", &ShapefileSettings::projection,
        "projection file in the folder Resources, for every .PRJ",
        "with LL, WGS 84; else the coordinate system that [GPS] TRANSFORMATION defines; without a definition "
        "ESRI.PRJ, which holds the British National Grid"),
};

}  // namespace

ShapefileSettings ReadShapefileSettings(const config::Run& run) {
    auto settings = config::ReadKeys<ShapefileSettings>(run.Installation(), keys);
    settings.suppressNA = ReadExportSettings(run).suppressNA;
    return settings;
}

config::KeyList ShapefileKeys() {
    return config::ListOf<ShapefileSettings>(keys);
}

}  // namespace vexlator::exporter
