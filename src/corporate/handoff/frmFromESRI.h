// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::corporate {

/// Has DrawingToEsri read a geodatabase into a drawing, within the extent of the run.
class frmFromESRI {
public:
    explicit frmFromESRI(config::Run& run) : run_(run) {}

    /// The list of files is not used. @throws platform::ReadError, platform::WriteError; std::runtime_error:
    /// what ended the hand-off
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

private:
    config::Run& run_;
};

}  // namespace vexlator::corporate
