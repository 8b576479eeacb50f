// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/TargetSystem.h"

#include "coords/TransformationSetting.h"
#include "platform/Errors.h"
#include "raster/Gdal.h"
#include "util/Text.h"

#include <cpl_conv.h>
#include <string>
#include <string_view>

namespace vexlator::gis {

namespace {

/// "8,79": the projection and the datum of a MapInfo definition.
std::string NumbersOf(std::string_view text) {
    std::string plain = util::ReplaceAll(text, " ", "");
    std::size_t begin = plain.find("Projection");
    return begin == std::string::npos ? "" : plain.substr(begin, plain.find('"', begin) - begin);
}

/// Whether MapInfo would find the definition's datum in a table with that system: GDAL knows some datums by
/// their codes only.
bool KeepsDatum(OGRSpatialReferenceH system, const std::string& definition) {
    char* text = nullptr;
    OSRExportToMICoordSys(system, &text);
    bool keeps = text && NumbersOf(text) == NumbersOf(definition);
    CPLFree(text);
    return keeps;
}

/// The system of interchange files, if that is set.
OGRErr DefineTabSystem(const std::string& definition, SpatialReference& system) {
    std::string text = definition;
    constexpr std::string_view keyword = "CoordSys ";
    if (text.starts_with(keyword)) text.erase(0, keyword.size());
    OGRErr error = OSRImportFromMICoordSys(system.get(), text.c_str());
    if (error != OGRERR_NONE || KeepsDatum(system.get(), text)) return error;
    int count = 0;
    OGRSpatialReferenceH* matches = OSRFindMatches(system.get(), nullptr, &count, nullptr);
    for (int i = 0; i < count; ++i)
        if (KeepsDatum(matches[i], text)) {
            system.reset(OSRClone(matches[i]));
            break;
        }
    OSRFreeSRSArray(matches);
    return OGRERR_NONE;
}

OGRErr DefineSystem(const config::Run& run, const GisFormat& format, bool inDegrees,
                    SpatialReference& system) {
    if (inDegrees) return OSRImportFromEPSG(system.get(), 4326);
    std::string header = format.code == "TAB" ? run.ReadIni("MID", "MIDMIFHEADER") : "";
    if (!header.empty()) return DefineTabSystem(header, system);
    return OSRSetFromUserInput(system.get(), coords::ReadTransformationSetting(run).DrawingSystem().c_str());
}

}  // namespace

SpatialReference TargetSystem(config::Run& run, const GisFormat& format, bool inDegrees) {
    SpatialReference system(OSRNewSpatialReference(nullptr));
    bool isKnown = false;
    try {
        isKnown = DefineSystem(run, format, inDegrees, system) == OGRERR_NONE;
    } catch (const platform::ReadError&) {  // told below
    }
    raster::TakeReason();
    if (!isKnown) {
        run.Ui().Report("no coordinate system in the files: the settings do not define one");
        return nullptr;
    }
    OSRSetAxisMappingStrategy(system.get(), OAMS_TRADITIONAL_GIS_ORDER);
    return system;
}

}  // namespace vexlator::gis
