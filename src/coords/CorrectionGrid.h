// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/ArrayOperation.h"
#include "coords/Backend.h"
#include "coords/DamageNotice.h"
#include "coords/ProjContext.h"
#include "coords/TransformationSetting.h"
#include "ui/UserInterface.h"

#include <string>

namespace vexlator::coords {

/// The British National Grid and ETRS89, through a grid of shifts from OSGB36 to ETRS89 (NTv2 or GeoTIFF)
/// and, for heights, a grid of geoid heights (ODN to the ellipsoid). The shifts come from the first of these
/// files: OSTN02.INT, OSTN97.INT, the published OSTN15 under its own names. The geoid is the published
/// OSGM15; without it, heights pass unchanged. A point outside the shifts has no result; neither has one
/// outside the geoid, when its height is asked for.
class CorrectionGrid : public Backend {
public:
    /// Looks for the files in `folders`, in their order, and for the published ones then in the projection
    /// library's own data folders. Shows "No Correction File Found" and where it belongs when there is none,
    /// or why the first one found cannot be used; then no point has a result. A file that turns out to be
    /// damaged where a point needs it is told once.
    CorrectionGrid(const GridFolders& folders, ui::UserInterface& userInterface);

    void Convert(Direction direction, Coordinates coordinates) override;
    std::string Description() override;

private:
    void LoadShifts();
    void LoadGeoid();
    void ConvertHeights(Direction direction, Coordinates coordinates);

    ui::UserInterface& ui_;
    ProjContext context_;
    ArrayOperation shifts_;
    ProjObject geoid_;
    std::string shiftFile_, geoidFile_;
    DamageNotice damage_;
    std::string howToGetOne_;  ///< for people
};

}  // namespace vexlator::coords
