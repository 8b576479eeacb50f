// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/CorrectionGrid.h"

#include "platform/Paths.h"

#include <cmath>
#include <utility>

namespace vexlator::coords {

namespace {

constexpr const char* publishedShifts = "uk_os_OSTN15_NTv2_OSGBtoETRS.tif";
constexpr const char* publishedShiftsNtv2 = "OSTN15_NTv2_OSGBtoETRS.gsb";
constexpr const char* publishedGeoid = "uk_os_OSGM15_GB.tif";

/// Null if the grid is missing or cannot be read.
ProjObject Create(ProjContext& context, const std::string& pipeline) {
    ProjObject operation = context.Create(pipeline);
    if (operation && !context.CanReadGrids(*operation)) operation.reset();
    return operation;
}

/// The National Grid's projection (Ordnance Survey, "A guide to coordinate systems in Great Britain").
ProjObject CreateShifts(ProjContext& context, const std::string& grid) {
    return Create(
        context,
        "+proj=pipeline +step +inv +proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 +y_0=-100000 "
        "+ellps=airy +step +proj=hgridshift +grids=" +
            grid + " +step +proj=unitconvert +xy_in=rad +xy_out=deg");
}

ProjObject CreateGeoid(ProjContext& context, const std::string& grid) {
    return Create(
        context,
        "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=vgridshift +grids=" +
            grid + " +multiplier=1 +step +proj=unitconvert +xy_in=rad +xy_out=deg");
}

std::string Unusable(const std::string& file, const ProjContext& context) {
    return file + ": cannot be used as a grid (NTv2 or GeoTIFF): " + context.Reason();
}

}  // namespace

CorrectionGrid::CorrectionGrid(const GridFolders& folders, ui::UserInterface& userInterface)
    : ui_(userInterface),
      context_(folders.inOrder),
      damage_(userInterface, folders.forNew),
      howToGetOne_(std::string(": put ") + publishedShifts + " (or OSTN02.INT, OSTN97.INT) into " +
                   platform::NativePath(folders.forNew)) {
    LoadShifts();
    if (shifts_) LoadGeoid();
}

void CorrectionGrid::LoadShifts() {
    for (const char* name : {"OSTN02.INT", "OSTN97.INT", publishedShifts, publishedShiftsNtv2}) {
        shiftFile_ = context_.FindInFolders(name);
        if (shiftFile_.empty()) continue;
        shifts_ = ArrayOperation(context_, CreateShifts(context_, name));
        if (!shifts_) ui_.ShowMessage(Unusable(shiftFile_, context_));
        return;
    }
    for (const char* name : {publishedShifts, publishedShiftsNtv2}) {
        shiftFile_ = name;
        shifts_ = ArrayOperation(context_, CreateShifts(context_, name));
        if (shifts_) return;
    }
    ui_.ShowMessage("No Correction File Found" + howToGetOne_);
}

void CorrectionGrid::LoadGeoid() {
    std::string file = context_.FindInFolders(publishedGeoid);
    geoid_ = CreateGeoid(context_, publishedGeoid);
    geoidFile_ = file.empty() ? publishedGeoid : file;
    if (!geoid_ && !file.empty()) ui_.ShowMessage(Unusable(file, context_));
}

void CorrectionGrid::Convert(Direction direction, Coordinates coordinates) {
    if (!shifts_) {
        for (util::PlanePoint& point : coordinates.points) point = {HUGE_VAL, HUGE_VAL};
        return;
    }
    if (direction == Direction::ToGrid) ConvertHeights(direction, coordinates);
    shifts_.Convert(direction, {coordinates.points, {}});
    damage_.TellOf(shiftFile_);
    if (direction == Direction::ToLatLng) ConvertHeights(direction, coordinates);
}

void CorrectionGrid::ConvertHeights(Direction direction, Coordinates coordinates) {
    if (!geoid_ || coordinates.heights.empty()) return;
    Transform(*geoid_, direction, coordinates);
    damage_.TellOf(geoidFile_);
}

std::string CorrectionGrid::Description() {
    if (!shifts_) return "no correction grid" + howToGetOne_;
    return "correction grid " + shiftFile_ + (geoid_ ? ", geoid " + geoidFile_ : "") +
           damage_.Found(context_, *shifts_.Get()) + (geoid_ ? damage_.Found(context_, *geoid_) : "");
}

}  // namespace vexlator::coords
