// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "export/LayerLoop.h"

#include <string>
#include <string_view>

namespace vexlator::exporter {

/// Exports to CAD programs: DXF here, DGN through the converter program. DWG is a closed format: a message
/// names DXF instead.
class frmDWG {
public:
    explicit frmDWG(config::Run& run) : run_(run) {}

    /// `format`: "DWG", "DXF" or "DGN". The file has the drawing's name, in the target folder.
    /// @throws platform::ReadError, platform::WriteError; std::runtime_error: what ended a conversion to DGN
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath, std::string_view format);

private:
    config::Outcome ExportDgn(const BegunExport& begun, std::string_view drawingPath,
                              std::string_view targetPath, const std::string& name);

    config::Run& run_;
};

enum class FrozenLayers { LeftOut, Kept };

/// Writes the drawing of an export as a DXF file; counts in its outcome, and adds losses to the run's.
/// @throws platform::ReadError, platform::WriteError
void WriteDxf(config::Run& run, BegunExport& begun, const std::string& path, FrozenLayers frozen);

}  // namespace vexlator::exporter
