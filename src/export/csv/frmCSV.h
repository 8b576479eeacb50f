// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// Exports a drawing's points and polylines as delimited text, one row each: the kind of geometry, the
/// feature code, coordinates, attribute values. There is one file for the drawing, with its name, or one for
/// each layer. Layer "0" is left out.
class frmCSV {
public:
    explicit frmCSV(config::Run& run) : run_(run) {}

    /// Writes into the existing folder `targetPath`: .ASC files with fixed settings if `asc` is 1, else .CSV
    /// files. The files appear together at the end. If none has the drawing's name, an older file with that
    /// name is removed.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath, int asc);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
