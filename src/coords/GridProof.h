// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/ProjContext.h"

#include <string>
#include <vector>

namespace vexlator::coords {

/// The grid files that an operation reads, of a list of several the first: native paths where our folders
/// have them, else their names. None where the operation is chosen point by point.
std::vector<std::string> GridFilesOf(const ProjContext& context, PJ& operation);

/// A grid file that cannot be read to its end.
struct DamagedGrid {
    std::string file, reason;  ///< both "" when all are whole
};

/// Converts points all over each grid of the operation, the middle among them, so that every part of the file
/// is read. Unpacks whole grids: tens of milliseconds.
DamagedGrid FindDamagedGrid(const ProjContext& context, PJ& operation);

}  // namespace vexlator::coords
