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
/// and, for heights, a grid of geoid heights (ODN to the ellipsoid). The shifts come from the first existing
/// file of OSTN02.INT, OSTN97.INT, and the published OSTN15 under its own names. The geoid is the published
/// OSGM15; without it, heights stay unchanged. A point outside the shifts has no result. A point with height
/// outside the geoid has none either.
class CorrectionGrid : public Backend {
public:
    /// Searches for the files in `folders`, in their order, then for the published ones in the projection
    /// library's own data folders. If there is none, shows "No Correction File Found" and the folder for it.
    /// If the first one cannot be used, shows why. In both cases no point has a result. A file that proves
    /// damaged at some point is reported once.
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
    std::string howToGetOne_;  ///< for the user
};

}  // namespace vexlator::coords
