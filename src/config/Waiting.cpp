// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Waiting.h"

#include "platform/Process.h"

namespace vexlator::config {

void Pause(ui::UserInterface& ui, double seconds) {
    ui.Settle(seconds);
}

int RunAndWait(const std::string& commandLine, ui::UserInterface& ui) {
    return platform::RunProgram(commandLine, [&] { ui.Settle(0); });
}

}  // namespace vexlator::config
