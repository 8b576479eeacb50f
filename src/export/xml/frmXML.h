// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// Exports a whole drawing as XML, in an open layout that the import reads back without loss. All layers are
/// in it, frozen ones too.
class frmXML {
public:
    explicit frmXML(config::Run& run) : run_(run) {}

    /// Writes NAME.XML, with the drawing's name, and its schema into the existing folder `targetPath`. Both
    /// appear together at the end.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

}  // namespace vexlator::exporter
