// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/ExitStatus.h"
#include "ui/UserInterface.h"

#include <string_view>

namespace vexlator::startup {

/// Makes one index over the packages in the sub-folders of a folder. The index has the folder's name. It
/// replaces an older one in one step. Never throws.
/// @returns NothingToDo if no sub-folder holds a package, Failed if one could not be included
ExitStatus MakeMosaic(std::string_view folder, ui::UserInterface& userInterface);

}  // namespace vexlator::startup
