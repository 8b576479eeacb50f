// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/CorrectionGrid.h"

#include <cmath>
#include <utility>

namespace vexlator::coords {

namespace {

/// The National Grid's projection (Ordnance Survey, "A guide to coordinate systems in Great Britain").
ProjObject CreateShifts(ProjContext& context, const std::string& grid) {
    return context.Create(
        "+proj=pipeline +step +inv +proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 "
        "+y_0=-100000 +ellps=airy +step +proj=hgridshift +grids=" +
        grid + " +step +proj=unitconvert +xy_in=rad +xy_out=deg");
}

ProjObject CreateGeoid(ProjContext& context, const std::string& grid) {
    return context.Create(
        "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=vgridshift +grids=" +
        grid + " +multiplier=1 +step +proj=unitconvert +xy_in=rad +xy_out=deg");
}

std::string Unusable(const std::string& file, const ProjContext& context) {
    return file + ": cannot be used as a grid (NTv2 or GeoTIFF): " + context.Reason();
}

}  // namespace

CorrectionGrid::CorrectionGrid(std::vector<std::string> folders, ui::UserInterface& userInterface)
    : context_(std::move(folders)) {
    LoadShifts(userInterface);
    if (shifts_) LoadGeoid(userInterface);
}

void CorrectionGrid::LoadShifts(ui::UserInterface& userInterface) {
    struct Candidate {
        const char* name;
        bool published;  ///< the projection library's data folders may have it
    };
    for (auto [name, published] : {Candidate{"OSTN02.INT", false}, Candidate{"OSTN97.INT", false},
                                   Candidate{"uk_os_OSTN15_NTv2_OSGBtoETRS.tif", true},
                                   Candidate{"OSTN15_NTv2_OSGBtoETRS.gsb", true}}) {
        std::string file = context_.FindInFolders(name);
        if (file.empty() && !published) continue;
        shifts_ = CreateShifts(context_, name);
        shiftFile_ = file.empty() ? name : file;
        if (shifts_) return;
        if (!file.empty()) return userInterface.ShowMessage(Unusable(file, context_));
    }
    userInterface.ShowMessage("No Correction File Found");
}

void CorrectionGrid::LoadGeoid(ui::UserInterface& userInterface) {
    constexpr const char* name = "uk_os_OSGM15_GB.tif";
    std::string file = context_.FindInFolders(name);
    geoid_ = CreateGeoid(context_, name);
    geoidFile_ = file.empty() ? name : file;
    if (!geoid_ && !file.empty()) userInterface.ShowMessage(Unusable(file, context_));
}

void CorrectionGrid::Convert(Direction direction, Coordinates coordinates) {
    if (!shifts_) {
        for (util::PlanePoint& point : coordinates.points) point = {HUGE_VAL, HUGE_VAL};
        return;
    }
    bool geoid = geoid_ && !coordinates.heights.empty();
    if (geoid && direction == Direction::ToGrid) Transform(*geoid_, Direction::ToGrid, coordinates);
    Transform(*shifts_, direction, {coordinates.points, {}});
    if (geoid && direction == Direction::ToLatLng) Transform(*geoid_, direction, coordinates);
}

std::string CorrectionGrid::Description() const {
    if (!shifts_) return "no correction grid";
    return "correction grid " + shiftFile_ + (geoid_ ? ", geoid " + geoidFile_ : "");
}

}  // namespace vexlator::coords
