// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/builder/AttributeList.h"
#include "background/styling/MobileStyles.h"
#include "background/styling/modGRPstyling.h"
#include "config/Keys.h"
#include "drawing/Drawing.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vexlator::background {

/// Settings of a package build.
struct BuildSettings {
    /// Reads [GRP] and [MOBILESTYLING] of gv.ini and a background styling file ("" for none). A missing file
    /// is reported and ignored. Without a styling file, the keys for layers and search in gv.ini are used.
    /// @throws platform::ReadError for a style file, or mobile style file, that cannot be read
    BuildSettings(config::Run& run, std::string_view drawingPath, std::string_view styleFile);

    /// For drawings with few layers, adds the optimised attributes of the style to the attribute list as
    /// another group.
    void ListOptimisedAttributes(const drawing::Drawing& drawing);

    bool createDxf, keepSymbols, fullPolygons;
    std::size_t memoryBytes;  ///< memory for tiles
    AttributeList attributes;
    BackgroundStyle style;
    MobileStyles mobileStyles;
};

/// The style file for packages that are built by a command; "" for none.
std::string StyleFileOfCommands(const config::Run& run);

config::KeyList PackageBuildKeys();

}  // namespace vexlator::background
