// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// A drawing becomes a database in the folder of the export, one table for each layer that holds points,
/// symbols or polylines, with an FMO file for each by which it can be imported again. The database has the
/// drawing's name, with [GENERAL] JobBasedMDB that of its job.
class frmMDB {
public:
    explicit frmMDB(config::Run& run) : run_(run) {}

    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError; then, and when
    /// the outcome is not Done, every table is as it was
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
