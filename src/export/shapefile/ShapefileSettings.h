// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>

namespace vexlator::exporter {

/// Settings of the shapefile export, from [CSV] and [SHPout] of gv.ini.
struct ShapefileSettings {
    bool suppressNA = false;  ///< values "NA" are written as empty values
    bool latLng = false;      ///< coordinates in degrees, x longitude and y latitude
    std::string projection;  ///< file in the program folder's Resources, copied beside each layer; empty: the
                             ///< drawings' system or, for layers in degrees, WGS 84
};
ShapefileSettings ReadShapefileSettings(const config::Run& run);
config::KeyList ShapefileKeys();

}  // namespace vexlator::exporter
