// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// Exports a drawing's features as points of interest for navigation devices: a file for every layer, which
/// is a category there, with the place and the first attribute value of each feature.
class frmTom {
public:
    explicit frmTom(config::Run& run) : run_(run) {}

    /// Writes into the existing folder `targetPath`. The files appear together at the end, unless no feature
    /// has a position in degrees.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
