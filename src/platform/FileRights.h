// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// For the files of this folder only.
namespace vexlator::platform {

/// Copies owner, group, mode and access list of a file to an open file, as far as this process may. The
/// set-user and set-group bits stay only if the owner or group stays.
void TakeRights(int descriptor, const std::string& from);

/// The target of a path whose last part is a symbolic link; else the path itself. A file that replaces it is
/// then written to the target, and the link stays.
/// @throws WriteError if a link on the way is in a folder that others can write, because anybody could have
/// put it there
std::string FollowLinks(const std::string& native);

}  // namespace vexlator::platform
