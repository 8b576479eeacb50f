// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "coords/SourceSystem.h"
#include "coords/frmLatLng.h"
#include "import/shapefile/ShapeImportSettings.h"
#include "util/Geometry.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace vexlator::importer {

/// The coordinate system of shapefiles and the conversion to the drawing's: by [SHPin] LL and USFT, or with
/// FOLLOWPRJ by the .PRJ. A message reports a .PRJ that differs from the settings.
class ShapeCoordinates {
public:
    ShapeCoordinates(config::Run& run, const ShapeImportSettings& settings);

    /// Starts this shapefile.
    void BeginFile(std::string_view shpPath);
    /// In place. Vertices that cannot be converted keep their coordinates.
    void Convert(std::span<util::PlanePoint> vertices);
    /// Number of vertices of the file that kept their coordinates.
    std::uint64_t Kept() const { return kept_; }

private:
    enum class Rule { AsTheyStand, Feet, Degrees, Prj };

    void ComparePrj(const std::string& prjPath);
    /// Loads the system of a .PRJ. @throws platform::ReadError
    void LoadSystem(const std::string& prjPath);
    /// Reports the treatment of coordinates in another system than that of the settings.
    std::string FollowPrj(const std::string& prjName);

    config::Run& run_;
    const ShapeImportSettings& settings_;
    Rule rule_ = Rule::AsTheyStand;
    std::uint64_t kept_ = 0;
    std::unique_ptr<coords::frmLatLng> converter_;
    std::string definition_;  ///< text of system_; most files of a run have the same
    std::unique_ptr<coords::SourceSystem> system_;
};

}  // namespace vexlator::importer
