// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FileMark.h"
#include "platform/NativeFiles.h"

#include <string>
#include <string_view>
#include <vector>

/// How the files of a set take their places so that all of them change or none. For the files of this folder
/// only.
///
/// Every old file keeps a second name until the last new one has moved, and a file in the folder, the list,
/// names all that are being moved. A run that finds the list of a killed one finishes the move, or undoes it
/// where it cannot be finished. It touches no file that somebody has put there meanwhile.
namespace vexlator::platform {

/// A finished file on its way into place. Without one: a twin of a target, which goes when all have moved.
struct SetMember {
    std::string temporary, target;  ///< native paths
    FileMark ours = {}, old = {};   ///< of the new file and of the one that it replaces, if there is one
    std::string kept = {};          ///< what the old file is called meanwhile; "" when there is none
};

/// Moves all files, no two to one target, or none, and removes the twins. Waits for another set that is being
/// moved in `folder`, and ends the move of a killed run. Members in other folders, to which symbolic links
/// led, are moved and brought back like the others, but do not stand in the list.
/// @throws WriteError: the file that could not be moved, and whether the old files are back
void MoveTogether(const std::string& folder, std::vector<SetMember> members, const Twins& twins);

/// Ends the move that a killed run of this user left in a folder, if there is one. What a user has to know of
/// how it ended; mostly "".
std::string EndAbandonedMove(const std::string& folder);

/// Whether files are being moved in a folder, or wait for the run that ends a move: somebody else's, or one
/// that cannot be ended now. They need the temporary files of the folder.
bool HasMove(const std::string& folder);

/// Whether a temporary name is that of a list.
bool IsMoveList(std::string_view name);

}  // namespace vexlator::platform
