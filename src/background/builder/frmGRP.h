// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::background {

/// Exports a drawing as a background package, which the device shows behind a crew's work.
class frmGRP {
public:
    explicit frmGRP(config::Run& run) : run_(run) {}

    /// @param targetPath the package's folder, whose name the package gets; or, if its last part contains a
    /// full stop and is not a folder, the path of the index file
    /// @param styleFile background styling file, "" for none. The new package replaces the old one at the
    /// end, with its index last.
    /// @throws platform::ReadError for a drawing or style that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath,
                          std::string_view styleFile);

private:
    config::Run& run_;
};

/// Makes the CAD converter program write a drawing as DXF. Reports a missing result.
void ConvertVDFtoDXF(config::Run& run, std::string_view drawingPath, std::string_view dxfPath);

}  // namespace vexlator::background
