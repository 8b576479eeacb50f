// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>

namespace vexlator::gpx {

struct GpxSettings {
    /// The file is valid by the GPX 1.1 schema. It names version and namespace, and both waypoints precede
    /// the track. Invalid values (times that are not times, heights with an exponent) are left out.
    bool strict = false;
    std::string webBase = "https://www.veltrom.example/professional-services";
};
GpxSettings ReadGpxSettings(const config::Run& run);
config::KeyList GpxKeys();

}  // namespace vexlator::gpx
