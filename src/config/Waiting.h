// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"

#include <string>

namespace vexlator::config {

/// Waits while windows stay responsive; returns at once without windows.
void Pause(ui::UserInterface& ui, double seconds);
/// Starts a program from a command line and waits until it ends, while windows stay responsive. Returns its
/// exit status, or -1 when it could not be started.
int RunAndWait(const std::string& commandLine, ui::UserInterface& ui);

}  // namespace vexlator::config
