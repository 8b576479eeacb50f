// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/shapefile/ShapefileSettings.h"

#include "export/ExportSettings.h"

namespace vexlator::exporter {

namespace {

using Keys = config::Keys<ShapefileSettings>;

constexpr config::KeyOf<ShapefileSettings> keys[] = {
    Keys::Flag("SHPout", "LL", &ShapefileSettings::latLng, "shapefile exports are in latitude/longitude"),
    Keys::Text(
        "SHPout", "PRJ", &ShapefileSettings::projection,
        "name of a projection file in the folder Resources. Each shapefile export copies it as its .PRJ",
        "WGS 84 if LL is on. If LL is off, the coordinate system of [GPS] TRANSFORMATION, or ESRI.PRJ "
        "(British National Grid) if TRANSFORMATION is not set"),
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
