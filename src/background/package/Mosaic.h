// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"

#include <cstddef>
#include <string>
#include <string_view>

/// One index over the packages in the sub-folders of a folder.
namespace vexlator::background {

/// The short name of a package whose name has 16 characters or more; the name itself when there is none.
std::string ShortPackageName(std::string_view name);

/// Makes the index of the packages in the sub-folders of a folder, after shortening the names of long ones
/// (files and folder). `target` is the index (a path with a file name) or the folder, whose index then has
/// the folder's name. With `onlyMm`, only sub-folders whose names begin with "mm" count. Without any package
/// there is no index afterwards. Returns the number of packages.
/// What cannot be renamed keeps its name, and a package whose index is damaged is left out; both give a
/// message.
/// @throws WriteError
std::size_t BuildMosaicIndex(std::string_view target, bool onlyMm, ui::UserInterface& userInterface);

}  // namespace vexlator::background
