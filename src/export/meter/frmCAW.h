// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// The meters of a drawing become the text file of a meter-reading system.
class frmCAW {
public:
    explicit frmCAW(config::Run& run) : run_(run) {}

    /// Writes the file, named after the drawing, into the folder `targetPath`, which exists. A drawing
    /// without meters makes none.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
