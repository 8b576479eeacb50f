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

/// What the coordinates of shapefiles are, and how they become the drawing's: as [SHPin] LL and USFT say, or
/// with FOLLOWPRJ as the .PRJ says. A .PRJ that differs from the settings is told in one line.
class ShapeCoordinates {
public:
    ShapeCoordinates(config::Run& run, const ShapeImportSettings& settings);

    /// What comes next is of this shapefile.
    void BeginFile(std::string_view shpPath);
    /// In place. Vertices that cannot be converted keep their coordinates.
    void Convert(std::span<util::PlanePoint> vertices);
    /// How many vertices of the file kept their coordinates.
    std::uint64_t Kept() const { return kept_; }

private:
    enum class Rule { AsTheyStand, Feet, Degrees, Prj };

    void ComparePrj(const std::string& prjPath);
    /// Loads the system of a .PRJ. @throws platform::ReadError
    void LoadSystem(const std::string& prjPath);
    /// Says what becomes of coordinates in another system than the settings say.
    std::string FollowPrj(const std::string& prjName);

    config::Run& run_;
    const ShapeImportSettings& settings_;
    Rule rule_ = Rule::AsTheyStand;
    std::uint64_t kept_ = 0;
    std::unique_ptr<coords::frmLatLng> converter_;
    std::string definition_;  ///< of system_; most files of a run have the same
    std::unique_ptr<coords::SourceSystem> system_;
};

}  // namespace vexlator::importer
