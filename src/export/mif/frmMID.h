// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// A drawing becomes MapInfo interchange files: a .MIF with its .MID for every layer that holds entities,
/// named after the layer. Layer "0" is left out.
class frmMID {
public:
    explicit frmMID(config::Run& run) : run_(run) {}

    /// Writes into the folder `targetPath`, which exists. The files appear together at the end.
    /// @throws platform::ReadError for a drawing or template that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
