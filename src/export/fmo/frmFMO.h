// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// Exports a drawing to the database tables of FMO files: one table for each layer with points, symbols or
/// polylines. A layer without an FMO file gets one, with a table in the database Features.MDB beside it. With
/// [GENERAL] JobBasedMDB, definitions and the database are in a sub-folder for the job.
class frmFMO {
public:
    explicit frmFMO(config::Run& run) : run_(run) {}

    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError. After an
    /// exception, or if the outcome is not Done, every table is unchanged.
    config::Outcome Start(std::string_view drawingPath, std::string_view fmoDirectory);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
