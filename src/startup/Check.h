// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/ExitStatus.h"
#include "ui/UserInterface.h"

namespace vexlator::startup {

/// Reports what the installation is configured to use, what of it is missing, and which database drivers and
/// correction grids this computer has. Changes nothing. Done when conversions can run, else NotUsable.
ExitStatus CheckInstallation(ui::UserInterface& userInterface);

}  // namespace vexlator::startup
