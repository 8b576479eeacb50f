// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string>
#include <string_view>

namespace vexlator::exporter {

/// Exports a drawing as shapefiles: one set of .SHP, .SHX, .DBF, .CPG and .PRJ for every layer with entities,
/// with the layer's name.
class frmSHP {
public:
    explicit frmSHP(config::Run& run) : run_(run) {}

    /// Writes into the existing folder `targetPath`. The files appear together at the end.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
