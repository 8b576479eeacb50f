// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// A drawing becomes rows of the database tables that FMO files describe: one table for each layer that holds
/// points, symbols or polylines. A layer without an FMO file gets one, and a table in the database
/// Features.MDB beside it. With [GENERAL] JobBasedMDB, definitions and the database are those of the job, in
/// a folder of its own below.
class frmFMO {
public:
    explicit frmFMO(config::Run& run) : run_(run) {}

    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError; then, and when
    /// the outcome is not Done, every table is as it was
    config::Outcome Start(std::string_view drawingPath, std::string_view fmoDirectory);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
