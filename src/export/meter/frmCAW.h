// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// Exports the meters of a drawing as the text file of a meter-reading system.
class frmCAW {
public:
    explicit frmCAW(config::Run& run) : run_(run) {}

    /// Writes the file, with the drawing's name, into the existing folder `targetPath`. A drawing without
    /// meters gives no file.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
