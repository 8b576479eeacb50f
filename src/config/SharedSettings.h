// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vexlator::config {

/// The settings of every conversion of an installation. Paths are path texts.
struct SharedSettings {
    std::string IniFilePath;                 ///< full path of gv.ini
    std::string ConfigFolder;                ///< its folder; LocalATPs is in it
    std::string ProgramFolder;               ///< the installation: application.ini, Resources
    std::string ATPDirectory;                ///< attribute templates
    std::string FMODirectory;                ///< database definitions
    std::string SymbolsDirectory;            ///< symbol drawings
    std::string WorkFlowDirectory;           ///< root of the job folders
    std::string WorkFlowSystem;              ///< folder of the workflow database
    std::string TempDirectory = "c:\\temp";  ///< scratch folder
    bool AutoLaunchExport = false;
    bool ReProcessFieldNames = false;
    bool MatchNames = false;  ///< exports put values into the column with their name, not by position
    bool CreateZip = false;
    bool DebugMode = false;
    std::string InOutLog;         ///< path of the run log; empty: none
    std::string SHORTENFIELDSON;  ///< separator that ends values; empty: off
};

}  // namespace vexlator::config
