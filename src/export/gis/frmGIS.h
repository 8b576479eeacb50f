// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string>
#include <string_view>
#include <utility>

namespace vexlator::exporter {

/// Exports what the converter program writes: GeoPackages, GeoJSON, FlatGeobuf and MapInfo tables.
class frmGIS {
public:
    /// `code`: the format code.
    frmGIS(config::Run& run, std::string code) : run_(run), code_(std::move(code)) {}

    /// Files appear in the target folder, all or none.
    /// @throws platform::ReadError, platform::WriteError; std::runtime_error: what ended the conversion
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
    std::string code_;
};

class frmTAB : public frmGIS {
public:
    explicit frmTAB(config::Run& run) : frmGIS(run, "TAB") {}
};

}  // namespace vexlator::exporter
