// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/ExitStatus.h"
#include "ui/UserInterface.h"

#include <string_view>

namespace vexlator::startup {

/// Creates a complete installation in a folder, which is created too: settings, templates, a default symbol,
/// the projection file, an empty workflow database. Existing files stay unchanged, so this also completes an
/// installation with missing files. Reports each file and folder as made or kept. Never throws. A file that
/// cannot be made is reported by a message, and the result is Failed.
ExitStatus MakeInstallation(std::string_view folder, ui::UserInterface& userInterface);

}  // namespace vexlator::startup
