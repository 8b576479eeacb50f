// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>

namespace vexlator::exporter {

/// Settings of the MIF/MID export, from [MID] of gv.ini.
struct MifSettings {
    std::string coordSys =
        "CoordSys Earth Projection 8, 79, \"m\", -2, 49, 0.9996012717, 400000, -100000 "
        "Bounds (-7845061.1011, -15524202.1641) (8645061.1011, 4470074.53373)";
    bool strict = false;  ///< writes complete objects and rows for readers that refuse incomplete ones
};
MifSettings ReadMifSettings(const config::Run& run);
config::KeyList MifKeys();

}  // namespace vexlator::exporter
