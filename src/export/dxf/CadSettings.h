// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Run.h"
#include "formats/dxf/DxfWriter.h"

#include <optional>
#include <string>
#include <string_view>

namespace vexlator::exporter {

/// Settings of exports to CAD programs, from [DWG] and [GENERAL] of gv.ini.
struct CadSettings {
    std::string version = "2007";
    bool asAttribs = false, attribsVis = false;
    std::string rotate = "0", falseOrigin;

    formats::DxfRelease release = formats::DxfRelease::R2007;
    double originX = 0, originY = 0;  ///< the point that becomes 0,0
    double turn = 0;                  ///< radians, counter-clockwise, about it
};
/// Tells of values that are not understood.
CadSettings ReadCadSettings(config::Run& run);

/// A text beside each feature of a code.
struct CadAnnotation {
    std::string attribute;  ///< whose value it is
    double height = 1;
};
/// By [DWG] CODE-ANNO, else -ANNO.
std::optional<CadAnnotation> CadAnnotationOf(const config::Run& run, std::string_view code);
/// What the name of a code's layer begins with, by [DWG] CODE-PREFIX, else -PREFIX.
std::string CadPrefixOf(const config::Run& run, std::string_view code);

config::KeyList CadExportKeys();

}  // namespace vexlator::exporter
