// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "startup/Conversions.h"
#include "startup/ExitStatus.h"
#include "ui/UserInterface.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::startup {

/// Shows the selection window and stays until it is closed. It gets the command text as the program received
/// it (a GO command without -QUIET), because GO at its start makes the window run its Go flow by itself.
using SelectionWindow = std::function<ExitStatus(config::Run&, std::string_view received)>;

struct MainOptions {
    Conversions conversions = AllConversions();
    SelectionWindow showSelection = {};  ///< none: a command for it finds nothing to do
    platform::Clock clock = platform::LocalTime;
    std::vector<config::IniOverride> settings = {};  ///< settings for this run only
    std::string folder = {};  ///< path text of the folder for results; "": results go beside their sources
    std::function<void(config::Run&)> whenEnded = {};  ///< receives the run with its results
};

/// One run of the program: reads the settings, then does what the command text says, at most one conversion.
/// Never throws: exceptions of a conversion are shown to the user and written to the run log.
ExitStatus Main(std::string_view commandText, ui::UserInterface& userInterface,
                const MainOptions& options = {});

}  // namespace vexlator::startup
