// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/ExitStatus.h"
#include "ui/UserInterface.h"

#include <string_view>

namespace vexlator::startup {

/// Makes a complete installation in a folder, which is made too: settings, templates, a default symbol, the
/// projection file, an empty workflow database. Files that are there already stay as they are, so it also
/// completes an installation that lost some. Reports each file and folder, made or kept. Never throws; a file
/// that cannot be made is shown as a message and gives Failed.
ExitStatus MakeInstallation(std::string_view folder, ui::UserInterface& userInterface);

}  // namespace vexlator::startup
