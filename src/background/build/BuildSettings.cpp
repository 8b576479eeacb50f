// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/build/BuildSettings.h"

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

/// A file beside the drawing that some importers of areas leave: AREA.VDF.info, or AREA.info.
bool HasInfoFile(std::string_view drawingPath) {
    return util::FileSize(std::string(drawingPath) + ".info") > 0 ||
           util::FileSize(util::ChangeExtension(drawingPath, "info")) > 0;
}

std::size_t MemoryFrom(const std::string& megabytes) {
    if (megabytes.empty()) return PackageWriter::usualMemory;
    std::int64_t number = std::clamp<std::int64_t>(util::IntegerOf(megabytes), 0, mostMegabytes);
    return static_cast<std::size_t>(number) << 20;
}

}  // namespace

BuildSettings::BuildSettings(config::Run& run, std::string_view drawingPath,
                             std::string_view styleFile)
    : createDxf(run.ReadIniFlag("GRP", "CREATEDXF")),
      keepSymbols(run.ReadIniFlag("GRP", "DONTEXPLODE")),
      fullPolygons(run.ReadIniFlag("GRP", "GENFULLPOLYS") || HasInfoFile(drawingPath)),
      memoryBytes(MemoryFrom(run.ReadIni("GRP", "MEMORYMB"))),
      attributes(run.ReadIni("GRP", "AttributeList")),
      mobileStyles(ReadStyleText(run.ReadIni("MOBILESTYLING", "FILE"))) {
    if (platform::FileExists(styleFile)) {
        style = LoadBackgroundStyle(styleFile);
        return;
    }
    if (!styleFile.empty())
        run.Ui().ShowMessage("Style file not found: " + platform::NativePath(styleFile));
    style.layerOnField = run.ReadIni("LAYERON", "FIELD");
    style.searchOnField = run.ReadIni("SEARCHON", "FIELD");
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

}  // namespace vexlator::background
