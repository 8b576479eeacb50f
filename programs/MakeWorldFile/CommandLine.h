// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace vexlator::makeworldfile {

/// A command that was not understood.
struct WrongUse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The options of a command. Paths are path texts.
struct Command {
    std::string georefFile;           ///< control points; empty: none
    std::string source;               ///< the image
    std::string target;               ///< folder of all outputs
    std::vector<std::string> layers;  ///< images to overlay instead of the source; names or paths
    int tileSize = 0;                 ///< size of tiles in pixels; 0: the image stays whole
    std::string debugFile;            ///< gets a report of the run; empty: none
};

/// Keywords, in any letter case and order, each followed by its value: GEOREF, Source, target, FileList,
/// CARVE and debugfile.
/// @throws WrongUse
Command ParseCommand(const std::vector<std::string>& arguments);

}  // namespace vexlator::makeworldfile
