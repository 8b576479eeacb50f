// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// Exports a drawing as one GML 3.2 document with its application schema beside it. Each feature code is a
/// type of features, each attribute a property under its own name.
class frmGML {
public:
    explicit frmGML(config::Run& run) : run_(run) {}

    /// Writes NAME.GML and NAME.xsd, with the drawing's name, into the existing folder `targetPath`. Both
    /// appear together at the end.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
