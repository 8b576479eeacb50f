// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/frmLatLng.h"
#include "support/Installation.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace vexlator::test {

using Triple = std::array<double, 3>;

/// An installation in its own folder, and a projection library that knows only the grids in it.
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

    /// The library reads PROJ_DATA only once in a process.
    static std::string ProjFolder() {
        return std::filesystem::temp_directory_path() / ("vexlator-proj-" + std::to_string(getpid()));
    }
    /// Makes a definition file and its setting.
    void Define(std::string_view content, const std::string& name = "system.dat") {
        run.WriteIni("GPS", "TRANSFORMATION", folder.Write(name, content));
    }
    void InstallOstn15(const std::string& where) {
        std::filesystem::create_directories(folder / where);
        for (const auto& entry : std::filesystem::directory_iterator(VEXLATOR_OSTN15_FOLDER))
            if (entry.path().extension() == ".tif")
                std::filesystem::create_symlink(entry.path(), folder / where / entry.path().filename());
    }
    static bool HasOstn15() { return std::filesystem::exists(VEXLATOR_OSTN15_FOLDER); }

    /// Latitude and longitude of a grid point, "" if it has none.
    std::string LatLng(coords::frmLatLng& form, double easting, double northing) {
        auto texts = form.GridToLatLng(easting, northing, 0, false);
        return texts ? texts->first + " " + texts->second : "";
    }

    /// The results of a projection tool for some points, with the same grids.
    std::vector<Triple> Peer(const std::string& command, const std::vector<Triple>& points) {
        std::ostringstream input;
        input.precision(12);
        input << std::fixed;
        for (const Triple& p : points) input << p[0] << ' ' << p[1] << ' ' << p[2] << '\n';
        std::string source = folder.Write("peer.in", input.str());
        EXPECT_EQ(std::system((command + " < " + source + " > " + (folder / "peer.out")).c_str()), 0)
            << command;
        std::istringstream output(TempFolder::Read(folder / "peer.out"));
        std::vector<Triple> results;
        std::string line;
        for (Triple p; std::getline(output, line);)
            if (std::istringstream(line) >> p[0] >> p[1] >> p[2]) results.push_back(p);
        EXPECT_EQ(results.size(), points.size()) << command;
        results.resize(points.size());
        return results;
    }
};

}  // namespace vexlator::test
