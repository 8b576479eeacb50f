// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/ExitStatus.h"
#include "ui/UserInterface.h"

namespace vexlator::startup {

/// Reports the configuration of the installation, its missing parts, and the database drivers and correction
/// grids of this computer. Changes nothing. Returns Done if conversions can run, else NotUsable.
ExitStatus CheckInstallation(ui::UserInterface& userInterface);

}  // namespace vexlator::startup
