// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/BuildSettings.h"

#include "background/package/PackageWriter.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <algorithm>
#include <string>
#include <vector>

namespace vexlator::background {

namespace {

constexpr std::int64_t mostMegabytes = 1 << 20;
constexpr std::size_t fewLayers = 4;
constexpr int optimisedWidth = 64;

/// A file beside the drawing that some importers of areas write: AREA.VDF.info, or AREA.info.
bool HasInfoFile(std::string_view drawingPath) {
    return util::FileSize(std::string(drawingPath) + ".info") > 0 ||
           util::FileSize(util::ChangeExtension(drawingPath, "info")) > 0;
}

/// The values in gv.ini.
struct IniSettings {
    bool createDxf = false, keepSymbols = false, fullPolygons = false;
    int megabytes = PackageWriter::usualMemory >> 20;
    std::string attributeList, layerOnField, searchOnField, styleFile, mobileStyleFile;
};

using Keys = config::Keys<IniSettings>;

constexpr config::KeyOf<IniSettings> keys[] = {
    Keys::Flag(
        "GRP", "DONTEXPLODE", &IniSettings::keepSymbols,
        "background packages hold symbols as points. Off: they hold the lines and texts of each symbol"),
    Keys::Text("GRP", "AttributeList", &IniSettings::attributeList,
               "layers with attribute records of fixed width in background packages, as in "
               "{LAYER,WIDTH,NAME,NAME}{...}",
               "none; packages then hold each attribute with its name"),
    Keys::Flag("GRP", "CREATEDXF", &IniSettings::createDxf,
               "a DXF file is written beside each background package"),
    Keys::Flag("GRP", "GENFULLPOLYS", &IniSettings::fullPolygons,
               "closed polylines of all drawings become areas. Off: only those of classified drawings do. A "
               "file DRAWING.VDF.info beside a drawing switches this on for the drawing"),
    Keys::File("GRP", "STYLEFILE", &IniSettings::styleFile,
               "background style file (.BSF) for packages that are built from the command line", "none"),
    Keys::Number(
        "GRP", "MEMORYMB", &IniSettings::megabytes,
        "megabytes of memory for the tiles of a package. Further tiles go to a temporary file. Range", "512",
        0, mostMegabytes),
    Keys::File("MOBILESTYLING", "FILE", &IniSettings::mobileStyleFile, "path of the mobile styling file",
               "none"),
    Keys::Text("LAYERON", "FIELD", &IniSettings::layerOnField,
               "attribute whose value is a feature's layer in background packages built without a style file",
               "none"),
    Keys::Text("SEARCHON", "FIELD", &IniSettings::searchOnField,
               "attribute for searches in background packages built without a style file", "none"),
};

IniSettings ReadIniSettings(const config::Run& run) {
    return config::ReadKeys<IniSettings>(run.Installation(), keys);
}

}  // namespace

BuildSettings::BuildSettings(config::Run& run, std::string_view drawingPath, std::string_view styleFile)
    : mobileStyles(ReadStyleText(ReadIniSettings(run).mobileStyleFile)) {
    IniSettings ini = ReadIniSettings(run);
    createDxf = ini.createDxf;
    keepSymbols = ini.keepSymbols;
    fullPolygons = ini.fullPolygons || HasInfoFile(drawingPath);
    memoryBytes = static_cast<std::size_t>(ini.megabytes) << 20;
    attributes = AttributeList(ini.attributeList);
    if (platform::FileExists(styleFile)) {
        style = LoadBackgroundStyle(styleFile);
        return;
    }
    if (!styleFile.empty()) run.Ui().ShowMessage("Style file not found: " + platform::NativePath(styleFile));
    style.layerOnField = ini.layerOnField;
    style.searchOnField = ini.searchOnField;
}

void BuildSettings::ListOptimisedAttributes(const drawing::Drawing& drawing) {
    std::vector<std::string> fields;
    for (const ListedName& attribute : style.optimisedAttributes)
        if (attribute.selected) fields.push_back(attribute.name);
    if (fields.empty() || drawing.layerCount() >= fewLayers) return;
    const auto& layers = drawing.layers();
    auto layer = std::ranges::find_if(layers, [](const drawing::Layer& each) { return each.name != "0"; });
    attributes.Add(layer == layers.end() ? "0" : layer->name, optimisedWidth, fields);
}

std::string StyleFileOfCommands(const config::Run& run) {
    return ReadIniSettings(run).styleFile;
}

config::KeyList PackageBuildKeys() {
    return config::ListOf<IniSettings>(keys);
}

}  // namespace vexlator::background
