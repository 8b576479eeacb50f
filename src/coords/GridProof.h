// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/ProjContext.h"

#include <string>
#include <vector>

namespace vexlator::coords {

/// The grid files of an operation. For a list of files: the first. Native paths for files in our folders,
/// else names. None if the operation is chosen point by point.
std::vector<std::string> GridFilesOf(const ProjContext& context, PJ& operation);

/// A grid file that cannot be read completely.
struct DamagedGrid {
    std::string file, reason;  ///< both "" if all are undamaged
};

/// Converts points all over each grid of the operation, including the middle, so that every part of the file
/// is read. Unpacks whole grids, which takes tens of milliseconds.
DamagedGrid FindDamagedGrid(const ProjContext& context, PJ& operation);

}  // namespace vexlator::coords
