// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/go/SourceKinds.h"

#include "platform/AsciiCase.h"
#include "util/Paths.h"

#include <string>

namespace vexlator::startup {

namespace {

constexpr SourceKind kinds[] = {
    {"LYR", Treatment::ByGisProgram, "ESRI layer"},
    {"MXD", Treatment::ByGisProgram, "ESRI map document"},
    {"SWD", Treatment::ByGisProgram, "Cadcorp workspace"},
    {"DGN", Treatment::ByDrawing, "CAD drawing"},
    {"DXF", Treatment::ByDrawing, "CAD drawing"},
    {"DWG", Treatment::ByDrawing, "CAD drawing"},
    {"SHP", Treatment::ByDrawing, "shapefile"},
    {"TAB", Treatment::ByDrawing, "MapInfo table"},
    {"MIF", Treatment::ByDrawing, "MapInfo interchange file"},
    {"JOB", Treatment::ByDrawing, "device job"},
    {"VDF", Treatment::ByDrawing, "drawing"},
    {"ECW", Treatment::Images, "image"},
    {"JPG", Treatment::Images, "image"},
    {"BMP", Treatment::Images, "image"},
    {"NTF", Treatment::Images, "NTF map"},
    {"GZ", Treatment::Topography, "compressed GML"},
    {"GML", Treatment::Topography, "GML"},
    {"PDF", Treatment::MapSheet, "map sheet"},
};
constexpr SourceKind nothing;

}  // namespace

const SourceKind& KindOf(std::string_view path) {
    std::string extension = util::ExtensionOf(path);
    for (const SourceKind& kind : kinds)
        if (platform::SameNoCase(extension, kind.code)) return kind;
    return nothing;
}

}  // namespace vexlator::startup
