// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Outcome.h"
#include "config/Run.h"
#include "ui/UserInterface.h"

#include <string>
#include <string_view>

namespace vexlator::importer {

/// Has the CAD converter program make a drawing of a DWG, DXF or DGN file. False when no drawing comes of it;
/// the person has been told. `view` is where a cancel arrives.
bool ConvertDWGtoVDF(config::Run& run, std::string_view cadFile, std::string_view drawingFile,
                     ui::FormView& view);

/// CAD drawings become drawings through the converter program; in metres when [GRPin] ft says that they are
/// in feet.
class frmFromCAD {
public:
    explicit frmFromCAD(config::Run& run) : run_(run) {}

    /// The drawing is saved in `sourceFolder` under the source's base name. Without one from the converter
    /// that is an empty drawing, and the outcome is Failed. @throws platform::ReadError, platform::WriteError
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder);

private:
    config::Run& run_;
};

config::KeyList CadKeys();

}  // namespace vexlator::importer
