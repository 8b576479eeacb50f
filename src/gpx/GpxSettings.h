// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>

namespace vexlator::gpx {

struct GpxSettings {
    /// The file is valid by the schema of GPX 1.1: version and namespace are named, both waypoints stand
    /// before the track, and what the schema forbids (times that are none, heights with an exponent) is left
    /// out.
    bool strict = false;
    std::string webBase = "https://www.veltrom.example/professional-services";
};
GpxSettings ReadGpxSettings(const config::Run& run);
config::KeyList GpxKeys();

}  // namespace vexlator::gpx
