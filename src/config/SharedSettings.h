// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vexlator::config {

/// The part of the world that an import is limited to, in drawing units. All 0: no limit.
struct ImportExtentBox {
    double minX = 0, minY = 0, maxX = 0, maxY = 0;
};

/// What a run is told once, at its start. Paths are path texts.
struct SharedSettings {
    std::string IniFilePath;        ///< full path of gv.ini
    std::string ConfigFolder;       ///< its folder; LocalATPs lies below
    std::string ProgramFolder;      ///< the installation: application.ini, Resources
    std::string ATPDirectory;       ///< attribute templates
    std::string FMODirectory;       ///< database definitions
    std::string SymbolsDirectory;   ///< symbol drawings
    std::string WorkFlowDirectory;  ///< root of the job folders
    std::string WorkFlowSystem;     ///< folder of the workflow database
    std::string TempDirectory;      ///< scratch folder
    bool AutoLaunchExport = false;
    bool ReProcessFieldNames = false;
    bool MatchNames = false;  ///< exports put values into the column of their name, else of their position
    bool CreateZip = false;
    bool DebugMode = false;
    std::string InOutLog;         ///< path of the run log; empty: none
    std::string SHORTENFIELDSON;  ///< separator at which values are cut short; empty: off
    bool Quiet = false;
    bool RunMinimised = false;
    ImportExtentBox ImportExtent;

    // Filled by an exporter while it runs, read by the steps that follow an export.
    std::string JobSourcePath;    ///< the job the drawing came from
    std::string JobRelativePath;  ///< the same below WorkFlowDirectory, without it; else empty
    std::string MissingPhotos;    ///< one line per photograph that was not found
};

}  // namespace vexlator::config
