// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"

#include <string_view>

namespace vexlator::corporate {

/// Hands a drawing over to DrawingToEsri, which writes it into the corporate geodatabase and removes it.
class frmESRI {
public:
    explicit frmESRI(config::Run& run) : run_(run) {}

    /// The target gets the photographs. Steps after an export follow a failed one too.
    /// @throws platform::ReadError, platform::WriteError; std::runtime_error: what ended the hand-off
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    config::Run& run_;
};

}  // namespace vexlator::corporate
