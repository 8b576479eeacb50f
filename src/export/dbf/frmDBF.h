// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

struct BegunExport;
struct DbfSettings;

/// Exports the attributes of a drawing's points, symbols and polylines as dBASE tables: one for every layer,
/// with the layer's name, or one of all layers for tree surveys, with the drawing's. Each has a .CPG, which
/// names its encoding.
class frmDBF {
public:
    explicit frmDBF(config::Run& run) : run_(run) {}

    /// Writes into the existing folder `targetPath`. The files appear together at the end.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    void WriteTables(BegunExport& begun, const DbfSettings& settings, std::string_view targetPath);
    void WriteSurvey(BegunExport& begun, const DbfSettings& settings, const std::string& basePath);

    config::Run& run_;
};

}  // namespace vexlator::exporter
