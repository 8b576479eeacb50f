// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// A drawing's points and polylines become delimited text, a row each: the kind of geometry, the feature
/// code, coordinates, attribute values. One file for the drawing, named after it, or one for each layer.
/// Layer "0" is left out.
class frmCSV {
public:
    explicit frmCSV(config::Run& run) : run_(run) {}

    /// Writes into the folder `targetPath`, which exists: .ASC files, by fixed settings, when `asc` is 1,
    /// else .CSV files. The files appear together at the end; where none has the drawing's name, an older one
    /// of that name goes.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath, int asc);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
