// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Outcome.h"
#include "config/Run.h"

#include <string>
#include <string_view>

namespace vexlator::importer {

/// Imports what the converter program reads: GeoPackages, GeoJSON, FlatGeobuf and MapInfo tables. All layers
/// of the sources go into one drawing.
class frmFromGIS {
public:
    /// `code`: the format code of the sources.
    frmFromGIS(config::Run& run, std::string code) : run_(run), code_(std::move(code)) {}

    /// Sources and drawing as for every import. @throws std::runtime_error: what ended the conversion
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

private:
    config::Run& run_;
    std::string code_;
};

class frmFromTAB : public frmFromGIS {
public:
    explicit frmFromTAB(config::Run& run) : frmFromGIS(run, "TAB") {}
};

/// Areas of a MapInfo table that are nowhere wider become symbols, by [TAB] SMALLPOLYSASPOINTS; 0: none do.
double SmallAreaSize(const config::Run& run);
config::KeyList TabImportKeys();

}  // namespace vexlator::importer
