// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Outcome.h"

#include <string_view>

namespace vexlator::exporter {

/// Exports an environmental survey as pages to read and print: one for every layer, with the values, the
/// place and the photographs of each feature. A page needs no other file.
class frmENV {
public:
    explicit frmENV(config::Run& run) : run_(run) {}

    /// Writes .html files, with the layers' names, into the existing folder `targetPath`. They appear
    /// together at the end.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

config::KeyList EnvironmentKeys();

}  // namespace vexlator::exporter
