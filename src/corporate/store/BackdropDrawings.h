// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Run.h"

#include <cstdint>
#include <string>

namespace vexlator::corporate {

/// How a backdrop is cut into drawings.
struct BackdropGrid {
    double interval = 0;             ///< side of a tile, in units of the source
    std::uint64_t mostEntities = 0;  ///< features of a drawing
};

/// Makes drawings NAME_1.VDF, NAME_2.VDF, ... of a source: one when it has few features, else one or more for
/// each tile. A feature belongs to the tile of its first vertex. Earlier ones with higher numbers go.
/// @param target path text; its folder gets the drawings, and its base name, at most twelve characters, names
/// them
/// @throws platform::ReadError, platform::WriteError
void MakeBackdropDrawings(config::Run& run, const std::string& source, const std::string& target,
                          const BackdropGrid& grid, config::ConversionReport& report);

}  // namespace vexlator::corporate
