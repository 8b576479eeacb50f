// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace vexlator::backgroundbuilder {

/// A command that is not understood.
struct WrongUse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What the program is asked for. Paths are path texts.
struct Command {
    std::string source;
    std::string target;     ///< the package's index file
    bool takesAll = false;  ///< every file of the source's folder that has its extension
};

/// The keywords SOURCE, TARGET and ALL, in any letter case and order, each with its value behind it.
/// @throws WrongUse
Command ParseCommand(const std::vector<std::string>& arguments);

/// The files that become the package, in the order of their names. @throws platform::ReadError for none
std::vector<std::string> SourcesOf(const Command& command);

/// Section SELECT of BackgroundBuilder.ini beside gv.ini.
struct UpdateOptions {
    bool appliesUpdates = false;  ///< COU: the sources are change-only updates
    bool keepsState = false;      ///< mmMDB: what topography has become is kept for them
    std::string backupFolder;     ///< MMBACKUP: where
};
UpdateOptions ReadUpdateOptions(const config::Run& run);

}  // namespace vexlator::backgroundbuilder
