// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// Exports a drawing as MapInfo interchange files: a .MIF with its .MID for every layer with entities, with
/// the layer's name. Layer "0" is left out.
class frmMID {
public:
    explicit frmMID(config::Run& run) : run_(run) {}

    /// Writes into the existing folder `targetPath`. The files appear together at the end.
    /// @throws platform::ReadError for a drawing or template that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
