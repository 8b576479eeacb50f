// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/ExitStatus.h"
#include "ui/UserInterface.h"

#include <string_view>

namespace vexlator::startup {

/// Makes one index over the packages in the sub-folders of a folder, which the index is named after. It
/// replaces an older one in one step. Never throws.
/// @returns NothingToDo when no sub-folder holds a package, Failed when one could not be taken in
ExitStatus MakeMosaic(std::string_view folder, ui::UserInterface& userInterface);

}  // namespace vexlator::startup
