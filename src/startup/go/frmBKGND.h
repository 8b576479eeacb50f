// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Run.h"

#include <functional>
#include <string>
#include <string_view>

namespace vexlator::startup {

/// Launches the background-building component, BackgroundBuilder.exe in the program folder. It finds its
/// options in BackgroundBuilder.ini beside gv.ini, builds with the arguments
/// SOURCE "source" TARGET "package" ALL 0|1, and ends with exit status 0 when the package is complete.
class frmBKGND {
public:
    explicit frmBKGND(config::Run& run) : run_(run) {}

    /// @param all every file of the source's kind in its folder
    /// @param applyUpdates the source holds change-only updates
    /// @returns "" when it has built; else why not, in a plain line that nobody has been told
    std::string GoNow(std::string_view source, std::string_view target, bool all, bool applyUpdates,
                      const std::function<void()>& whileWaiting);

private:
    config::Run& run_;
};

config::KeyList BackgroundLaunchKeys();

}  // namespace vexlator::startup
