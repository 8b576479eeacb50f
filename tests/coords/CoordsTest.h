// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/frmLatLng.h"
#include "support/Installation.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <unistd.h>

namespace vexlator::test {

/// An installation in a folder of its own, and a projection library that knows no grids but those put there.
class CoordsTest : public InstallationTest {
protected:
    CoordsTest() {
        std::filesystem::create_directories(folder / "inst");
        std::filesystem::create_directories(folder / "proj");
        std::filesystem::create_symlink(VEXLATOR_PROJ_DATABASE, folder / "proj/proj.db");
        std::filesystem::remove(ProjFolder());
        std::filesystem::create_directory_symlink(folder / "proj", ProjFolder());
        setenv("PROJ_DATA", ProjFolder().c_str(), 1);
        setenv("XDG_DATA_HOME", (folder / "home").c_str(), 1);
        setenv("VEXLATOR_DRIVES", (folder / "drives").c_str(), 1);
        installation.Settings().ProgramFolder = folder / "inst";
        installation.Settings().IniFilePath = folder / "inst/gv.ini";
    }

    ~CoordsTest() override { std::filesystem::remove(ProjFolder()); }

    /// The library may look at PROJ_DATA once only in a process.
    static std::string ProjFolder() {
        return std::filesystem::temp_directory_path() / ("vexlator-proj-" + std::to_string(getpid()));
    }
    /// Makes a definition file and the setting that names it.
    void Define(std::string_view content, const std::string& name = "system.dat") {
        run.WriteIni("GPS", "TRANSFORMATION", folder.Write(name, content));
    }
    /// Latitude and longitude of a grid point, "" when it has none.
    std::string LatLng(coords::frmLatLng& form, double easting, double northing) {
        auto texts = form.GridToLatLng(easting, northing, 0, false);
        return texts ? texts->first + " " + texts->second : "";
    }
};

}  // namespace vexlator::test
