// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::background {

/// A drawing becomes a background package, which the device shows under a crew's work.
class frmGRP {
public:
    explicit frmGRP(config::Run& run) : run_(run) {}

    /// @param targetPath the package's folder, which gives it its name; or, when its last part contains a
    /// full stop and is no folder, the path of the index file
    /// @param styleFile background styling file, "" for none
    /// The new package replaces the old one at the end, its index last.
    /// @throws platform::ReadError for a drawing or style that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath,
                          std::string_view styleFile);

private:
    config::Run& run_;
};

/// Has the CAD converter program write a drawing as DXF; tells when no file comes of it.
void ConvertVDFtoDXF(config::Run& run, std::string_view drawingPath, std::string_view dxfPath);

}  // namespace vexlator::background
