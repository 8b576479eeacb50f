// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// For the files of this folder only.
namespace vexlator::platform {

/// Gives an open file what another one has: owner, group, mode and access list, each as far as this process
/// may. The bits that run a file as its owner or group stay only where that owner or group does.
void TakeRights(int descriptor, const std::string& from);

/// Where a path leads to, when its last part is a symbolic link; else the path as it is. A file that takes
/// its place is then written where the link points, and the link stays.
/// @throws WriteError when a link on the way lies in a folder that others can write: anybody could have put
/// it there
std::string FollowLinks(const std::string& native);

}  // namespace vexlator::platform
