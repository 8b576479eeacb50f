// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Installation.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace vexlator::vdconv {

/// A command line that is not understood; the reason.
struct WrongUse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Command {
    bool isImport = false;
    std::string code;                  ///< format of the sources, or of the results
    std::vector<std::string> sources;  ///< of an import
    std::string drawing;               ///< target of an import, source of an export
    std::string folder, name;          ///< of the results: NAME.CODE in the folder, or a file for each layer
    std::string report;                ///< file for the program that started this one; "": there is a person
    std::vector<config::IniOverride> settings;  ///< values that hold for this run
};

/// The forms are those of the program's help. @throws WrongUse
Command ParseCommand(const std::vector<std::string>& arguments);

}  // namespace vexlator::vdconv
