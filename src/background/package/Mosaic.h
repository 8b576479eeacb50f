// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"

#include <cstddef>
#include <string>
#include <string_view>

/// One index over the packages in the sub-folders of a folder.
namespace vexlator::background {

/// The short name of a package whose name has 16 characters or more; the name itself if there is none.
std::string ShortPackageName(std::string_view name);

/// Makes the index of the packages in the sub-folders of a folder, after shortening long names (of files and
/// folder). `target` is the index (a path with a file name) or the folder, whose index then has the folder's
/// name. With `onlyMm`, only sub-folders with names starting with "mm" count. Without any package there is no
/// index afterwards. Returns the number of packages. A folder that cannot be renamed keeps its name. A
/// package with a damaged index is left out. Both give a message.
/// @throws WriteError
std::size_t BuildMosaicIndex(std::string_view target, bool onlyMm, ui::UserInterface& userInterface);

}  // namespace vexlator::background
