// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace vexlator::corporate {

/// A command line that is not understood; the reason.
struct WrongUse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What a hand-off program is asked for, by words of any letter case with a value each:
///   [ACTION EXPORT|IMPORT] GDB STORE VD DRAWING [BOX minX,minY,maxX,maxY] [INI FILE] [DEBUG ON]
struct HandoffCommand {
    bool isImport = false;
    std::string store;    ///< the corporate GIS, or the source of an import
    std::string drawing;  ///< path text
    config::ImportExtentBox extent;
    bool showsDetails = false;

    /// The log that tells of the end.
    std::string LogPath() const;
};

/// @throws WrongUse
HandoffCommand ParseHandoff(const std::vector<std::string>& words);

}  // namespace vexlator::corporate
