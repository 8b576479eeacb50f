// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/dbf/DbfSettings.h"

#include "export/ExportSettings.h"

namespace vexlator::exporter {

namespace {

using Keys = config::Keys<DbfSettings>;

constexpr config::KeyOf<DbfSettings> keys[] = {
    Keys::Flag("DBF", "ForceEmpty", &DbfSettings::forceEmpty,
               "DBF exports write a table without records for each feature code of the drawing that has a "
               "template but no features"),
    Keys::Flag(
        "DBF", "PolyCentroid", &DbfSettings::polyCentroid,
        "tables of DBF exports end with the columns EASTING and NORTHING: the position of a point, the "
        "centroid of an area, the middle of a line"),
    Keys::Flag(
        "THIRD", "Arbolog", &DbfSettings::arbolog,
        "DBF exports write one table for tree surveys: feature code, EASTING, NORTHING, LEVEL, then the "
        "attributes of all feature codes"),
};

}  // namespace

DbfSettings ReadDbfSettings(const config::Run& run) {
    auto settings = config::ReadKeys<DbfSettings>(run.Installation(), keys);
    settings.suppressNA = ReadExportSettings(run).suppressNA;
    return settings;
}

config::KeyList DbfKeys() {
    return config::ListOf<DbfSettings>(keys);
}

}  // namespace vexlator::exporter
