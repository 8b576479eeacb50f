// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// Exports a drawing to a database in the folder of the export, with one table for each layer with points,
/// symbols or polylines. Each table has an FMO file for a later import. The database has the drawing's name,
/// with [GENERAL] JobBasedMDB that of its job.
class frmMDB {
public:
    explicit frmMDB(config::Run& run) : run_(run) {}

    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError. After an
    /// exception, or if the outcome is not Done, every table is unchanged.
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
