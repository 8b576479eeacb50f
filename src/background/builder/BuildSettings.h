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

/// What decides how a package is built, beside the drawing itself.
struct BuildSettings {
    /// Reads [GRP] and [MOBILESTYLING] of gv.ini and a background styling file ("" for none). One that is
    /// not there is told and counts as none. Without one, what gv.ini says of layers and search is taken.
    /// @throws platform::ReadError for a style file, or mobile style file, that cannot be read
    BuildSettings(config::Run& run, std::string_view drawingPath, std::string_view styleFile);

    /// With few layers, the optimised attributes of the style make one more group of the attribute list.
    void ListOptimisedAttributes(const drawing::Drawing& drawing);

    bool createDxf, keepSymbols, fullPolygons;
    std::size_t memoryBytes;  ///< for tiles
    AttributeList attributes;
    BackgroundStyle style;
    MobileStyles mobileStyles;
};

/// The style file of packages that a command asks for; "" for none.
std::string StyleFileOfCommands(const config::Run& run);

config::KeyList PackageBuildKeys();

}  // namespace vexlator::background
